#include "host/desktop/options.h"

#include <charconv>

namespace desktop {

namespace {

// Takes the value of one option; false when it is no good.
using Reader = bool (*)(Options& options, std::string_view value);

bool ReadFolder(Options& options, std::string_view value) {
    options.folder = value;
    return !value.empty();
}

bool ReadAuthor(Options& options, std::string_view) { return options.author = true; }

bool ReadSeed(Options& options, std::string_view value) {
    std::uint64_t seed = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), seed);
    options.seed = seed;
    return error == std::errc() && end == value.data() + value.size();
}

bool ReadHelp(Options& options, std::string_view) { return options.help = true; }

bool ReadVersion(Options& options, std::string_view) { return options.version = true; }

struct OptionRow {
    std::string_view name;
    std::string_view value; // what the value is called; empty: the option takes none
    Reader read;
    std::string_view help;
};
constexpr OptionRow kOptions[] = {
    {"--folder", "DIR", ReadFolder, "use the tables, sounds and best scores in DIR"},
    {"--author", "", ReadAuthor, "switch on the editors and the invincible mode"},
    {"--seed", "N", ReadSeed, "start every game from the random seed N (0 to 2^64 - 1)"},
    {"--help", "", ReadHelp, "print this text and exit"},
    {"--version", "", ReadVersion, "print the version and exit"},
};

const OptionRow* FindOption(std::string_view name) {
    for (const OptionRow& row : kOptions) {
        if (row.name == name) return &row;
    }
    return nullptr;
}

// One argument, cut at its first "=".
struct Argument {
    std::string_view name;
    std::optional<std::string_view> value;
};

Argument Split(std::string_view text) {
    const auto equals = text.find('=');
    if (equals == std::string_view::npos) return {text, {}};
    return {text.substr(0, equals), text.substr(equals + 1)};
}

std::string Problem(const OptionRow* row, const Argument& argument, Options& options) {
    const std::string name(argument.name);
    if (!row) return "unknown option " + name;
    if (row->value.empty() && argument.value) return name + " takes no value";
    if (!row->value.empty() && !argument.value) return name + " needs a value";
    const std::string_view value = argument.value.value_or("");
    if (!row->read(options, value)) return name + ": '" + std::string(value) + "' is no good as " + std::string(row->value);
    return {};
}

}  // namespace

Options ParseOptions(const std::vector<std::string_view>& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size() && options.error.empty(); ++i) {
        Argument argument = Split(arguments[i]);
        const OptionRow* row = FindOption(argument.name);
        if (row && !row->value.empty() && !argument.value && i + 1 < arguments.size()) argument.value = arguments[++i];
        options.error = Problem(row, argument, options);
    }
    return options;
}

std::string HelpText() {
    constexpr std::size_t kHelpColumn = 18;
    std::string text = "Usage: tarnveil [OPTION]...\nA vertically scrolling shooting game.\n\n";
    for (const OptionRow& row : kOptions) {
        std::string line = "  " + std::string(row.name);
        if (!row.value.empty()) line += " " + std::string(row.value);
        if (line.size() < kHelpColumn) line.resize(kHelpColumn, ' ');
        text += line + " " + std::string(row.help) + "\n";
    }
    return text;
}

}  // namespace desktop
