#include "sim_options.h"

#include <filesystem>

#include "command_line/command_line.h"
#include "recording/link.h"
#include "sim_names.h"

using namespace command_line;

namespace {

constexpr int kMostJobs = 256;
constexpr std::uint64_t kMostSeeds = 1'000'000'000;

template <typename T>
Choices<T> ChoicesOf(const std::vector<SimName<T>>& names) {
    Choices<T> choices;
    for (const auto& [value, name] : names) choices.emplace_back(name, value);
    return choices;
}

Choices<std::string> Pilots() {
    Choices<std::string> pilots;
    for (const std::string& name : PilotNames()) pilots.emplace_back(name, name);
    return pilots;
}

// "A..B", "I/N": the two numbers around `between`, when they are some.
std::optional<std::pair<std::uint64_t, std::uint64_t>> TwoNumbers(const std::string& text, const std::string& between) {
    const auto at = text.find(between);
    if (at == std::string::npos) return {};
    const auto first = WholeNumber(text.substr(0, at)), second = WholeNumber(text.substr(at + between.size()));
    if (!first || !second) return {};
    return std::pair{*first, *second};
}

std::string TakeSeeds(const std::string& text, SweepPlan& games) {
    const std::string limit = std::to_string(kMostSeeds);
    if (const auto range = TwoNumbers(text, "..")) {
        const auto [first, last] = *range;
        if (last < first || last - first >= kMostSeeds) return text + " is not 1 to " + limit + " seeds";
        games.sim.seed = first;
        games.seeds = last - first + 1;
        return {};
    }
    const auto count = WholeNumber(text);
    if (!count || *count < 1 || *count > kMostSeeds) return "\"" + text + "\" is neither A..B nor 1 to " + limit;
    games.seeds = *count;
    return {};
}

std::string TakeShard(const std::string& text, SweepPlan& games) {
    const auto shard = TwoNumbers(text, "/");
    if (!shard || shard->first < 1 || shard->first > shard->second)
        return "\"" + text + "\" is not I/N with I from 1 to N";
    std::tie(games.shard, games.shards) = *shard;
    return {};
}

std::string WhyNoGame(const std::string& name) {
    std::error_code error;
    if (LooksLikeLink(name) || std::filesystem::is_directory(name, error)) return {};
    return WhyNotRead(name);
}

std::string TakeAddress(const std::string& text, SimLine& line) {
    if (!text.ends_with('/') && !text.ends_with(".html")) return "\"" + text + "\" is no page: it ends in / or .html";
    line.address = text;
    return {};
}

void AddGames(App& app, SimLine& line) {
    SweepPlan& games = line.games;
    AddFolder(app, "--folder", line.folder, "play the tables in DIR (default: the current folder)");
    AddChoice(app, "--play", games.sim.play, ChoicesOf(kPlayNames), "what is played");
    AddChoice(app, "--level", games.sim.level, ChoicesOf(kLevelNames), "the difficulty");
    AddChoice(app, "--pilot", games.sim.pilot, Pilots(), "who plays");
    AddChoice(app, "--weapon", games.sim.weapon, ChoicesOf(kWeaponNames), "the shot that the pilot uses");
    AddNumber(app, "--seed", games.sim.seed, 0, kAnyNumber, "the first seed");
    AddWord(
        app, "--seeds", "A..B", [&games](const std::string& text) { return TakeSeeds(text, games); },
        "play the seeds A to B; one number: so many, from --seed on");
    AddNumber(app, "--jobs", games.jobs, 1, kMostJobs, "play in N processes at once");
}

// A sweep over many seeds in parts.
void AddSweep(App& app, SimLine& line) {
    SweepPlan& games = line.games;
    AddWord(
        app, "--shard", "I/N", [&games](const std::string& text) { return TakeShard(text, games); },
        "play only the Ith of N parts of the seeds");
    AddFlag(app, "--json", games.json, "print a line of JSON for each game instead of the summary");
    AddOutputFile(app, "--resume", games.resume, "keep the games in FILE, and play only those that are not in it yet");
    app.add_option("--merge", line.merge,
                   "print the summary of the games in FILE..., as --json and --resume leave them")
        ->type_name("FILE")
        ->check(WhyNotRead);
}

// What else can come of it.
void AddResults(App& app, SimLine& line) {
    AddOutputFile(app, "--record", line.games.sim.recordTo, "write a recording of the game");
    AddFlag(app, "--report", line.report, "play everything, or what --play says, --seeds times with every pilot");
    AddFlag(app, "--hold", line.hold, "hold the shipped stages to what they promise; fails when something is broken");
    auto* chart = AddOutputFile(app, "--chart", line.chart,
                                "draw what is in sight during the stage as SVG, over --seeds games (with gnuplot)");
    AddFile(app, "--passages", line.passages,
            "write the names of the stage's passages into the chart, as tarnveil-tables passages prints them")
        ->needs(chart);
    auto* verify = app.add_option("--verify", line.verify,
                                  "play recorded games again, files, links or folders of runs, and print who is best "
                                  "by play and level; fails when one is not what it says")
                       ->type_name("GAME")
                       ->check(WhyNoGame);
    AddOutputFile(app, "--html", line.page, "write the ranking as a page, with links that play")->needs(verify);
    AddWord(
        app, "--page", "URL", [&line](const std::string& text) { return TakeAddress(text, line); },
        "the address of the game's page, for those links (default ./)")
        ->needs(verify);
    AddFile(app, "--renew", line.renew, "play the game of a recording with its pilot anew and record it in its place");
    AddFlag(app, "--any-data", line.anyData, "verify also with other data tables")->needs(verify);
}

// Each of these decides what the program does.
void Exclude(App& app) {
    std::vector<std::string> others = {"--shard", "--resume"};
    for (const std::string one : {"--merge", "--record", "--report", "--hold", "--chart", "--verify", "--renew"}) {
        for (const std::string& other : others) app.get_option(one)->excludes(app.get_option(other));
        others.push_back(one);
    }
    app.get_option("--record")->excludes(app.get_option("--seeds"));
}

}  // namespace

std::optional<int> ReadSimLine(int argc, const char* const* argv, SimLine& line) {
    App app("tarnveil-sim", 1, "Plays Tarnveil without a window, many times, and reports.");
    AddGames(app, line);
    AddSweep(app, line);
    AddResults(app, line);
    Exclude(app);
    const auto ended = app.Read(argc, argv);
    line.playGiven = app.count("--play") > 0;
    return ended;
}
