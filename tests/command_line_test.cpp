// The programs' command lines, and the papers made of them.
#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "../src/options.h"
#include "sim_options.h"

namespace {

using Words = std::vector<const char*>;

// The status it ends with; -1: the program would go on.
template <typename Read, typename Line>
int Status(Read read, Words words, Line& line) {
    words.insert(words.begin(), "program");
    return read(static_cast<int>(words.size()), words.data(), line).value_or(-1);
}

// What is said about a wrong line; empty when it is taken.
template <typename Line>
std::string Complaint(std::optional<int> (*read)(int, const char* const*, Line&), const Words& words) {
    Line line;
    testing::internal::CaptureStderr();
    const int status = Status(read, words, line);
    const std::string said = testing::internal::GetCapturedStderr();
    return status == (said.empty() ? -1 : 2) ? said : "status " + std::to_string(status);
}

std::string Output(const std::string& command) {
    std::string text;
    FILE* pipe = popen(command.c_str(), "r");
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) text += static_cast<char>(c);
    const int status = pclose(pipe);
    return status == 0 ? text : command + " ended with " + std::to_string(WEXITSTATUS(status));
}

// Everything in `text` that matches the pattern's first group.
std::set<std::string> All(const std::string& text, const std::string& pattern) {
    const std::regex regex(pattern, std::regex::multiline);
    std::set<std::string> found;
    for (std::sregex_iterator i(text.begin(), text.end(), regex); i != std::sregex_iterator(); ++i)
        found.insert((*i)[1]);
    return found;
}

TEST(CommandLineTest, TakesValuesInBothForms) {
    desktop::Options options;
    ASSERT_EQ(-1, Status(desktop::ReadOptions, {"--folder", "/", "--seed=18446744073709551615", "--author"}, options));
    EXPECT_EQ("/", options.folder);
    EXPECT_EQ(18446744073709551615u, options.seed);
    EXPECT_TRUE(options.author);
    SimLine line;
    ASSERT_EQ(-1, Status(ReadSimLine, {"--level=Hard", "--play", "attack", "--seeds", "7"}, line));
    EXPECT_EQ(5, line.games.sim.level);
    EXPECT_EQ(4, line.games.sim.play.number);
    EXPECT_EQ(7u, line.games.seeds);
    EXPECT_TRUE(line.playGiven);
}

TEST(CommandLineTest, RefusesWhatItDoesNotUnderstand) {
    const std::pair<std::string, Words> game[] = {
        {"--wait", {"--wait"}},
        {"file", {"file"}},
        {"--folder: 1 required DIR missing", {"--author", "--folder"}},
        {"/no/such is not a folder", {"--folder=/no/such"}},
        {"author", {"--author=yes"}},
        {"--replay", {"--record=a", "--replay=b"}},
        {"--any-data requires --replay", {"--any-data"}},
        {"--fast requires --replay", {"--fast", "--record=a"}},
        {"--record: the name is empty", {"--record", ""}},
    };
    for (const auto& [complaint, words] : game) {
        const std::string said = Complaint(desktop::ReadOptions, words);
        EXPECT_NE(std::string::npos, said.find(complaint)) << said;
    }
}

// One more than the decimal number.
std::string Next(std::string number) {
    for (auto digit = number.rbegin(); digit != number.rend(); ++digit) {
        if (*digit != '9') return ++*digit, number;
        *digit = '0';
    }
    return "1" + number;
}

// The values that an option of a program takes and those it refuses, from what its help calls the value.
struct Values {
    std::set<std::string> taken, refused;
};
Values ValuesFor(const std::string& program, const std::string& option, const std::string& called) {
    const std::string self = program.substr(0, program.find(' '));
    if (called == "DIR") return {{"/tmp"}, {"", "word", "-1", "0", self}};
    if (called == "FILE") return {{self}, {"", "/no/such/folder/file", "/tmp", "/dev/null"}};
    if (called == "GAME") return {{self, "/tmp", "'./#run=A'"}, {"", "/no/such/folder/file", "/dev/null"}};
    if (called == "URL") return {{"./", "https://example.org/game.html"}, {"", "word", "-1"}};
    if (called == "A..B") return {{"1", "3..5"}, {"", "word", "-1", "0", "5..3", "1..", "18446744073709551616"}};
    if (called == "I/N") return {{"1/1", "2/3"}, {"", "word", "-1", "0", "0/3", "4/3", "1"}};
    if (called == "STAGE:ENTRY") return {{"stage1:0", "attack:512"}, {"", "stage1", "stage1:513", "x:1", "stage1:x"}};
    const auto words = All(called, "([A-Za-z0-9]+)");
    if (called != "N") return {{*words.begin(), *words.rbegin()}, {"", "word", "-1", "0", "99999999999999999999"}};
    const std::string said = Output(program + " " + option + " word 2>&1; true");
    const std::string low = *All(said, "from ([0-9]+) to").begin(), high = *All(said, "to ([0-9]+)").begin();
    return {{low, high}, {"", "word", "-1", low == "0" ? "-0" : "0", Next(high), "0x1", "1.5", "+1", "' 1'", "'1 '"}};
}

// Each option of each program, as its help lists them. Before --help values are looked at and nothing is done.
TEST(CommandLineTest, EveryOptionRefusesNonsense) {
    std::istringstream programs(TARNVEIL_PROGRAMS);
    for (std::string program; programs >> program;) {
        const std::string help = Output(program + " --help");
        const std::regex row("^  (--[a-z-]+)(?: ([A-Z{][^ \n]*))?(?: |\\.\\.\\.|$)", std::regex::multiline);
        for (std::sregex_iterator i(help.begin(), help.end(), row), end; i != end; ++i) {
            const std::string option = program + " " + (*i)[1].str(), called = (*i)[2].str();
            const auto status = [](const std::string& line) {
                return WEXITSTATUS(std::system((line + " --help >/dev/null 2>&1").c_str()));
            };
            if (called.empty()) {
                EXPECT_EQ(0, status(option));
                for (const char* value : {"=yes", "=-1", "=0"}) EXPECT_EQ(2, status(option + value)) << option << value;
                continue;
            }
            EXPECT_EQ(2, WEXITSTATUS(std::system((option + " 2>/dev/null").c_str()))) << option;
            const auto [taken, refused] = ValuesFor(program, (*i)[1], called);
            for (const auto& value : taken) EXPECT_EQ(0, status(option + " " + value)) << option << " " << value;
            for (const auto& value : refused) {
                EXPECT_EQ(2, status(option + " " + (value.empty() ? "''" : value))) << option << " " << value;
            }
        }
    }
}

TEST(CommandLineTest, FoldersOfTheTablesToolMustBeThere) {
    std::istringstream programs(TARNVEIL_PROGRAMS);
    for (std::string program; programs >> program;) {
        if (!program.ends_with("tarnveil-tables")) continue;
        for (const char* line :
             {"", "word", "build", "build /tmp", "build '' /tmp", "build /tmp ''", "build /tmp /no/dir",
              "build /tmp /tmp /tmp", "dump /tmp ''", "dump - /tmp", "check", "check ''", "check -1"}) {
            EXPECT_EQ(2, WEXITSTATUS(std::system((program + " " + line + " 2>/dev/null").c_str()))) << line;
        }
    }
}

// The help is what people read first: what it lists is what the man page explains and the shell completes.
TEST(CommandLineTest, HelpManPageAndCompletionTellTheSame) {
    std::istringstream programs(TARNVEIL_PROGRAMS);
    for (std::string program; programs >> program;) {
        const std::string name = program.substr(program.rfind('/') + 1),
                          function = "_complete_" + std::regex_replace(name, std::regex("-"), "_");
        const std::string help = Output(program + " --help");
        const auto inHelp = All(help, "^  (?:-h,)?([a-z-]+)");
        EXPECT_GE(inHelp.size(), 2u) << help;
        const std::string page = std::regex_replace(Output(program + " --man-page"), std::regex(R"(\\-)"), "-");
        std::set<std::string> everywhere = inHelp;  // with the options of commands
        for (const std::string& word : inHelp) {
            if (!word.starts_with("--"))
                everywhere.merge(All(Output(program + " " + word + " --help"), "^  (--[a-z-]+)"));
        }
        EXPECT_EQ(everywhere, All(page, R"(^\.(?:TP\n|SS )\\fB(?:-h, )?([a-z-]+)\\fR)")) << name;
        const auto complete = [&](const std::string& words) {
            return Output("bash -c 'source <(" + program + " --bash-completion); COMP_WORDS=(" + name + " " + words +
                          "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); " + function + "; echo \"${COMPREPLY[@]}\"'");
        };
        // Where a file may stand those of the folder are offered too.
        const auto offered = All(complete("\"\""), "(?:^| )([a-z-]{3,})");
        for (const std::string& word : inHelp) EXPECT_TRUE(offered.contains(word)) << name << ' ' << word;
        for (const std::string& word : offered)
            EXPECT_TRUE(!word.starts_with("--") || inHelp.contains(word)) << name << ' ' << word;
        const std::string levels = help.find("--level") == std::string::npos ? "\n" : "Nomal\n";
        EXPECT_EQ(levels, complete("--level = N")) << name;
    }
}

}  // namespace
