#include "command_line/command_line.h"

#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>

#include "command_line/papers.h"

namespace command_line {

namespace fs = std::filesystem;

namespace {

// What is wrong with a path; empty when it will do.
std::string WhyNoFolder(const std::string& path) {
    if (path.empty()) return "the name is empty";
    std::error_code error;
    return fs::is_directory(path, error) ? "" : path + " is not a folder";
}

template <int wanted>
std::string WhyNotAllowed(const std::string& path) {
    return access(path.c_str(), wanted) == 0 ? "" : path + ": " + std::strerror(errno);
}

}  // namespace

std::string WhyNotRead(const std::string& path) {
    if (path.empty()) return "the name is empty";
    std::error_code error;
    const auto status = fs::status(path, error);
    if (fs::exists(status) && !fs::is_regular_file(status)) return path + " is no plain file";
    return WhyNotAllowed<R_OK>(path);
}

namespace {

// A file that is not there yet needs its folder.
std::string WhyNotWritten(const std::string& path) {
    std::error_code error;
    if (path.empty() || fs::exists(path, error)) {
        const std::string reason = WhyNotRead(path);
        return reason.empty() ? WhyNotAllowed<W_OK>(path) : reason;
    }
    const std::string folder = fs::absolute(path, error).parent_path();
    const std::string reason = WhyNoFolder(folder);
    return reason.empty() ? WhyNotAllowed<W_OK | X_OK>(folder) : reason;
}

int Print(const std::string& text) {
    return std::fputs(text.c_str(), stdout) < 0 || std::fflush(stdout) != 0 ? kFailed : kDone;
}

int Refuse(const std::string& name, const std::string& reason) {
    std::fprintf(stderr, "%s: %s\nTry '%s --help'.\n", name.c_str(), reason.c_str(), name.c_str());
    return kWrongUse;
}

// Ends the reading with a text to print, whatever else the line says.
struct Printed : CLI::Success {
    explicit Printed(const std::string& text) : CLI::Success(text, CLI::ExitCodes::Success) {}
};

// Of a value only what it is called: what goes with what is said when it is used wrongly.
struct Help : CLI::Formatter {
    std::string make_option_opts(const CLI::Option* option) const override {
        return option->get_expected_min() == 0 || option->get_positional() ? "" : " " + option->get_type_name();
    }
};

}  // namespace

App::App(const std::string& name, int manSection, const std::string& description) : CLI::App(description, name) {
    formatter(std::make_shared<Help>());
    set_help_flag("-h,--help", "print this text and exit")->disable_flag_override();
    set_version_flag("--version", name + " " TARNVEIL_VERSION, "print the version and exit")->disable_flag_override();
    // These two are used while the program is built and stay out of the help.
    add_flag_callback("--man-page", [this, manSection] { throw Printed(ManPage(*this, manSection)); })->group("");
    add_flag_callback("--bash-completion", [this] { throw Printed(BashCompletion(*this)); })->group("");
}

std::optional<int> App::Read(int argc, const char* const* argv) {
    try {
        parse(argc, argv);
        return {};
    } catch (const Printed& paper) {
        return Print(paper.what());
    } catch (const CLI::CallForHelp&) {
        return Print(help());
    } catch (const CLI::CallForVersion& version) {
        return Print(std::string(version.what()) + "\n");
    } catch (const CLI::ParseError& error) {
        return Refuse(get_name(), error.what());
    }
}

CLI::Option* AddFlag(CLI::App& app, const std::string& name, bool& target, const std::string& help) {
    return app.add_flag(name, target, help)->disable_flag_override();
}

CLI::Option* AddFile(CLI::App& app, const std::string& name, std::string& target, const std::string& help) {
    return app.add_option(name, target, help)->type_name("FILE")->check(WhyNotRead);
}

CLI::Option* AddOutputFile(CLI::App& app, const std::string& name, std::string& target, const std::string& help) {
    return app.add_option(name, target, help)->type_name("FILE")->check(WhyNotWritten);
}

CLI::Option* AddFolder(CLI::App& app, const std::string& name, std::string& target, const std::string& help) {
    return app.add_option(name, target, help)->type_name("DIR")->check(WhyNoFolder);
}

CLI::Option* AddOutputFolder(CLI::App& app, const std::string& name, std::string& target, const std::string& help) {
    return AddFolder(app, name, target, help)->check(WhyNotAllowed<W_OK | X_OK>);
}

// strtoull, which CLI11 would use, takes "-1", " 1" and numbers that are too large.
std::optional<std::uint64_t> WholeNumber(const std::string& text) {
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return {};
    return number;
}

CLI::Option* AddWord(CLI::App& app, const std::string& name, const std::string& value,
                     const std::function<std::string(const std::string&)>& take, const std::string& help) {
    const auto checked = [](const std::string&) {};
    return app.add_option_function<std::string>(name, checked, help)->type_name(value)->check(take);
}

CLI::Option* AddNumberFor(CLI::App& app, const std::string& name, const std::function<void(std::uint64_t)>& take,
                          std::uint64_t low, std::uint64_t high, const std::string& help) {
    const auto fault = [low, high](const std::string& text) -> std::string {
        const auto number = WholeNumber(text);
        if (number && *number >= low && *number <= high) return {};
        const std::string range = std::to_string(low) + " to " + std::to_string(high);
        return "\"" + text + "\" is not a whole number from " + range;
    };
    return app
        .add_option_function<std::string>(
            name, [take](const std::string& text) { take(*WholeNumber(text)); }, help)
        ->type_name("N")
        ->check(fault);
}

CLI::Option* AddOneOf(CLI::App& app, const std::string& name, const std::function<void(const std::string&)>& take,
                      const std::vector<std::string>& words, const std::string& help) {
    const std::string all = "{" + CLI::detail::join(words, ",") + "}";
    const auto fault = [words, all](const std::string& word) -> std::string {
        const bool known = std::find(words.begin(), words.end(), word) != words.end();
        return known ? "" : "\"" + word + "\" is none of " + all;
    };
    return app.add_option_function<std::string>(name, take, help)->type_name(all)->check(fault);
}

}  // namespace command_line
