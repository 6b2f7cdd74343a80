// The command line of every program here. An option is declared once; --help, the man page and the bash completion are
// made from that declaration. CLI11 is heavy to compile: one source file of each program includes this.
#pragma once

#include <CLI/CLI.hpp>
#include <algorithm>
#include <concepts>
#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace command_line {

// How every program ends.
inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kWrongUse = 2;

inline constexpr std::uint64_t kAnyNumber = std::numeric_limits<std::uint64_t>::max();

// A program with its options. `description` is a sentence, `manSection` the number of the manual's section.
class App : public CLI::App {
  public:
    App(const std::string& name, int manSection, const std::string& description);

    // Reads the line. Nothing when the program goes on; else the status it ends with: what was asked for (--help,
    // --version) has been printed, or what is wrong been said.
    std::optional<int> Read(int argc, const char* const* argv);
};

// The words that an option takes, and what they stand for.
template <typename T>
using Choices = std::vector<std::pair<std::string, T>>;

// Takes no value.
CLI::Option* AddFlag(CLI::App& app, const std::string& name, bool& target, const std::string& help);

// Why a file cannot be read, or is no plain file; empty when it can.
std::string WhyNotRead(const std::string& path);

// A plain file to read; refused when that cannot be done.
CLI::Option* AddFile(CLI::App& app, const std::string& name, std::string& target, const std::string& help);

// A file that will be written, new or in place of an old one; refused when that cannot be done.
CLI::Option* AddOutputFile(CLI::App& app, const std::string& name, std::string& target, const std::string& help);

// A folder; refused when it is not there.
CLI::Option* AddFolder(CLI::App& app, const std::string& name, std::string& target, const std::string& help);

// The same, refused also when nothing can be written in it.
CLI::Option* AddOutputFolder(CLI::App& app, const std::string& name, std::string& target, const std::string& help);

// A word in a notation of its own, called `value` in the help. `take` gets it and returns what is wrong with it.
CLI::Option* AddWord(CLI::App& app, const std::string& name, const std::string& value,
                     const std::function<std::string(const std::string&)>& take, const std::string& help);

// Reads a whole number in decimal digits, and nothing else.
std::optional<std::uint64_t> WholeNumber(const std::string& text);

// A whole number in decimal digits, from `low` to `high`. `take` gets it.
CLI::Option* AddNumberFor(CLI::App& app, const std::string& name, const std::function<void(std::uint64_t)>& take,
                          std::uint64_t low, std::uint64_t high, const std::string& help);

// The same into `target`. A plain number's value so far is its default and told in the help.
template <typename Target>
CLI::Option* AddNumber(CLI::App& app, const std::string& name, Target& target, std::uint64_t low, std::uint64_t high,
                       std::string help) {
    if constexpr (std::integral<Target>) help += " (default " + std::to_string(target) + ")";
    return AddNumberFor(
        app, name, [&target](std::uint64_t number) { target = static_cast<Target>(number); }, low, high, help);
}

// Takes one of `words`, and no other.
CLI::Option* AddOneOf(CLI::App& app, const std::string& name, const std::function<void(const std::string&)>& take,
                      const std::vector<std::string>& words, const std::string& help);

// One of the choices into `target`; its value so far is the default and told in the help.
template <typename T>
CLI::Option* AddChoice(CLI::App& app, const std::string& name, T& target, const Choices<T>& choices, std::string help) {
    std::vector<std::string> words;
    for (const auto& [word, value] : choices) {
        words.push_back(word);
        if (value == target) help += " (default " + word + ")";
    }
    const auto take = [&target, choices](const std::string& word) {
        target = std::find_if(choices.begin(), choices.end(), [&](const auto& c) { return c.first == word; })->second;
    };
    return AddOneOf(app, name, take, words, help);
}

}  // namespace command_line
