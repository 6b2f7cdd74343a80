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

bool ReadSoundFont(Options& options, std::string_view value) {
    options.soundFont = value;
    return !value.empty();
}

bool ReadAuthor(Options& options, std::string_view) {
    return options.author = true;
}

bool ReadSeed(Options& options, std::string_view value) {
    std::uint64_t seed = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), seed);
    options.seed = seed;
    return error == std::errc() && end == value.data() + value.size();
}

bool ReadRecord(Options& options, std::string_view value) {
    options.record = value;
    return !value.empty();
}

bool ReadReplay(Options& options, std::string_view value) {
    options.replay = value;
    return !value.empty();
}

bool ReadScreenshots(Options& options, std::string_view value) {
    options.screenshots = value;
    return !value.empty();
}

bool ReadAnyData(Options& options, std::string_view) {
    return options.anyData = true;
}

bool ReadFast(Options& options, std::string_view) {
    return options.fast = true;
}

bool ReadHelp(Options& options, std::string_view) {
    return options.help = true;
}

bool ReadVersion(Options& options, std::string_view) {
    return options.version = true;
}

struct OptionRow {
    std::string_view name;
    std::string_view value;  // what the value is called; empty: the option takes none
    Reader read;
    std::string_view help;
};
constexpr OptionRow kOptions[] = {
    {"--folder", "DIR", ReadFolder, "use the tables, sounds and best scores in DIR"},
    {"--author", "", ReadAuthor, "switch on the editors and the invincible mode"},
    {"--seed", "N", ReadSeed, "start every game from the random seed N (0 to 2^64 - 1)"},
    {"--soundfont", "FILE", ReadSoundFont, "play the music with the SoundFont FILE"},
    {"--record", "FILE", ReadRecord, "record the first game into FILE"},
    {"--replay", "FILE", ReadReplay, "play the recorded game FILE and exit"},
    {"--any-data", "", ReadAnyData, "replay also with other data tables than recorded with"},
    {"--fast", "", ReadFast, "replay as fast as the machine draws"},
    {"--screenshots", "DIR", ReadScreenshots, "leave three pictures of the replay in DIR"},
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

// What is wrong with the argument; empty when it is taken.
std::string_view Take(const OptionRow* row, const Argument& argument, Options& options) {
    if (!row) return "there is no such option";
    if (row->value.empty() && argument.value) return "takes no value";
    if (!row->value.empty() && !argument.value) return "needs a value";
    if (!row->read(options, argument.value.value_or(""))) return "that value is no good";
    return {};
}

// What is wrong with the options together; empty when they fit.
std::string_view Conflict(const Options& options) {
    if (!options.replay.empty()) return options.record.empty() ? "" : "--record and --replay do not go together";
    if (options.anyData) return "--any-data: goes with --replay only";
    if (options.fast) return "--fast: goes with --replay only";
    if (!options.screenshots.empty()) return "--screenshots: goes with --replay only";
    return {};
}

}  // namespace

Options ParseOptions(const std::vector<std::string_view>& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size() && options.error.empty(); ++i) {
        Argument argument = Split(arguments[i]);
        const OptionRow* row = FindOption(argument.name);
        if (row && !row->value.empty() && !argument.value && i + 1 < arguments.size()) argument.value = arguments[++i];
        const std::string_view problem = Take(row, argument, options);
        if (!problem.empty()) options.error.append(argument.name).append(": ").append(problem);
    }
    if (options.error.empty() && !options.help && !options.version) options.error = Conflict(options);
    return options;
}

std::string HelpText() {
    constexpr std::size_t kHelpColumn = 22;  // wider than every option with its value
    std::string text = "Usage: tarnveil [OPTION]...\nA vertically scrolling shooting game.\n\n";
    for (const OptionRow& row : kOptions) {
        std::string line = "  ";
        line.append(row.name).append(" ").append(row.value);
        line.resize(kHelpColumn, ' ');
        text.append(line).append(row.help).append("\n");
    }
    return text;
}

}  // namespace desktop
