// tarnveil-sim: plays the game without a window, many times, and reports. See usage below.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/folder.h"
#include "simulation.h"

namespace {

constexpr const char* kUsage =
    "usage: tarnveil-sim [options]\n"
    "  --folder DIR    folder of the data tables (default: the current one)\n"
    "  --play P        game, stage1, stage2, stage3 or attack (default stage1)\n"
    "  --level L       Easy, Nomal or Hard (default Nomal)\n"
    "  --pilot P       idle, sweep or dodge (default dodge)\n"
    "  --seed N        first seed (default 1)\n"
    "  --seeds N       play N games, seed after seed, on both cores\n"
    "  --jobs N        processes at once (default 2)\n"
    "  --record FILE   write a recording of the game (one seed)\n"
    "  --json          print JSON instead of a table\n"
    "  --verify FILE   play a recording again; fails at the first frame that differs\n"
    "  --any-data      with --verify: also with other data tables\n";

struct Options {
    SimOptions sim;
    std::string folder = ".";
    std::string verify;
    int seeds = 1;
    int jobs = 2;
    bool json = false;
    bool anyData = false;
};

template <typename T>
using Names = std::map<std::string_view, T>;
const Names<SimPlay> kPlays = {{"game", SimPlay::wholeGame},
                               {"stage1", SimPlay::stage1},
                               {"stage2", SimPlay::stage2},
                               {"stage3", SimPlay::stage3},
                               {"attack", SimPlay::attack}};
const Names<int> kLevels = {{"Easy", 1}, {"Nomal", 2}, {"Hard", 5}};
const Names<int> kPilots = {{"idle", 0}, {"sweep", 1}, {"dodge", 2}};

[[noreturn]] void Refuse(const std::string& message) {
    std::fprintf(stderr, "tarnveil-sim: %s\n%s", message.c_str(), kUsage);
    std::exit(2);
}

template <typename T>
T OneOf(const Names<T>& names, const std::string& option, std::string_view value) {
    const auto found = names.find(value);
    if (found == names.end()) Refuse(option + ": no such choice: " + std::string(value));
    return found->second;
}

template <typename T>
T NumberOf(const std::string& option, std::string_view value) {
    T number{};
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
    if (error != std::errc() || end != value.data() + value.size())
        Refuse(option + ": not a number: " + std::string(value));
    return number;
}

void SetOption(Options& o, const std::string& name, std::string_view value) {
    if (name == "--folder")
        o.folder = value;
    else if (name == "--play")
        o.sim.play = OneOf(kPlays, name, value);
    else if (name == "--level")
        o.sim.level = OneOf(kLevels, name, value);
    else if (name == "--pilot")
        o.sim.pilot = (OneOf(kPilots, name, value), value);
    else if (name == "--seed")
        o.sim.seed = NumberOf<std::uint64_t>(name, value);
    else if (name == "--seeds")
        o.seeds = std::max(NumberOf<int>(name, value), 1);
    else if (name == "--jobs")
        o.jobs = std::clamp(NumberOf<int>(name, value), 1, 64);
    else if (name == "--record")
        o.sim.recordTo = value;
    else if (name == "--verify")
        o.verify = value;
    else
        Refuse("no such option: " + name);
}

Options ReadOptions(int argc, char** argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string name = argv[i];
        if (name == "--json") {
            options.json = true;
        } else if (name == "--any-data") {
            options.anyData = true;
        } else if (name == "--help") {
            std::fputs(kUsage, stdout);
            std::exit(0);
        } else if (i + 1 >= argc) {
            Refuse(name + ": unknown, or its value is missing");
        } else {
            SetOption(options, name, argv[++i]);
        }
    }
    if (options.seeds > 1 && !options.sim.recordTo.empty()) Refuse("--record wants a single seed");
    return options;
}

// What the parent needs of a game, as plain values that fit through a pipe.
struct GameResult {
    std::uint64_t seed;
    int cleared, stuck, diedStage, diedEntry, frames, score, hits, mostEnemies, mostShots, spawnsLost, neverLeft;
    double seconds;
    int stages;
    StageReport stage[4];
    char error[200];
};

GameResult PlaySeed(const SimOptions& options) {
    const SimReport report = Simulate(options);
    GameResult r{};
    r.seed = options.seed;
    r.cleared = report.cleared, r.stuck = report.stuck, r.diedStage = report.diedStage;
    r.diedEntry = report.diedEntry, r.frames = report.frames, r.score = report.score, r.hits = report.hits;
    r.mostEnemies = report.mostEnemies, r.mostShots = report.mostShots, r.spawnsLost = report.spawnsLost;
    r.neverLeft = report.neverLeft, r.seconds = report.seconds;
    for (const StageReport& stage : report.stages) {
        if (r.stages < 4) r.stage[r.stages++] = stage;
    }
    std::snprintf(r.error, sizeof r.error, "%s", report.error.c_str());
    return r;
}

// The game's state is one per process, so games side by side are processes.
int StartJob(const Options& options, int job) {
    int ends[2];
    if (pipe(ends) != 0) Refuse("no pipe");
    if (fork() == 0) {
        close(ends[0]);
        for (int i = job; i < options.seeds; i += options.jobs) {
            SimOptions sim = options.sim;
            sim.seed += static_cast<std::uint64_t>(i);
            const GameResult result = PlaySeed(sim);
            if (write(ends[1], &result, sizeof result) != static_cast<ssize_t>(sizeof result)) _exit(1);
        }
        _exit(0);
    }
    close(ends[1]);
    return ends[0];
}

bool ReadResult(int end, GameResult& result) {
    std::size_t got = 0;
    while (got < sizeof result) {
        const ssize_t n = read(end, reinterpret_cast<char*>(&result) + got, sizeof result - got);
        if (n <= 0) return false;
        got += static_cast<std::size_t>(n);
    }
    return true;
}

std::vector<GameResult> PlayAll(const Options& options) {
    std::vector<GameResult> results;
    std::vector<int> ends;
    ends.reserve(static_cast<std::size_t>(options.jobs));
    for (int job = 0; job < std::min(options.jobs, options.seeds); ++job) ends.push_back(StartJob(options, job));
    for (const int end : ends) {
        GameResult result{};
        while (ReadResult(end, result)) results.push_back(result);
        close(end);
    }
    while (wait(nullptr) > 0) {
    }
    std::sort(results.begin(), results.end(), [](const auto& a, const auto& b) { return a.seed < b.seed; });
    return results;
}

double PerMinute(int hits, int frames) {
    constexpr double kFramesPerMinute = 60 * 1000.0 / 39;
    return frames == 0 ? 0 : hits * kFramesPerMinute / frames;
}

constexpr double kSecondsPerFrame = 0.039;

std::string JsonText(const char* text) {
    std::string escaped;
    for (; *text; ++text) {
        if (*text == '"' || *text == '\\') escaped += '\\';
        escaped += static_cast<unsigned char>(*text) < ' ' ? ' ' : *text;
    }
    return escaped;
}

void PrintJson(const std::vector<GameResult>& results) {
    std::puts("[");
    for (const GameResult& r : results) {
        std::printf(
            "{\"seed\":%llu,\"cleared\":%s,\"stuck\":%s,\"diedStage\":%d,\"diedEntry\":%d,\"frames\":%d,"
            "\"score\":%d,\"hits\":%d,\"hitsPerMinute\":%.2f,\"mostEnemies\":%d,\"mostShots\":%d,"
            "\"spawnsLost\":%d,\"neverLeft\":%d,\"stages\":[",
            static_cast<unsigned long long>(r.seed), r.cleared ? "true" : "false", r.stuck ? "true" : "false",
            r.diedStage, r.diedEntry, r.frames, r.score, r.hits, PerMinute(r.hits, r.frames), r.mostEnemies,
            r.mostShots, r.spawnsLost, r.neverLeft);
        for (int i = 0; i < r.stages; ++i) {
            const StageReport& s = r.stage[i];
            std::printf(
                "%s{\"stage\":%d,\"frames\":%d,\"hits\":%d,\"bossFrames\":%d,\"emptyLongest\":%d,\"cleared\":%s}",
                i ? "," : "", s.stage, s.frames, s.hits, s.bossFrames, s.emptyLongest, s.cleared ? "true" : "false");
        }
        std::printf("],\"framesPerSecond\":%.0f,\"error\":\"%s\"}%s\n", r.seconds > 0 ? r.frames / r.seconds : 0.0,
                    JsonText(r.error).c_str(), &r == &results.back() ? "" : ",");
    }
    std::puts("]");
}

void PrintStage(const std::vector<GameResult>& results, int stageNo) {
    int plays = 0, cleared = 0, frames = 0, hits = 0, empty = 0, bossFights = 0, bossFrames = 0, bossLongest = 0;
    int bossShortest = 1 << 30;
    for (const GameResult& r : results) {
        for (int i = 0; i < r.stages; ++i) {
            const StageReport& s = r.stage[i];
            if (s.stage != stageNo) continue;
            ++plays, cleared += s.cleared, frames += s.frames, hits += s.hits, empty = std::max(empty, s.emptyLongest);
            if (!s.cleared || s.bossFrames == 0) continue;
            ++bossFights, bossFrames += s.bossFrames;
            bossLongest = std::max(bossLongest, s.bossFrames), bossShortest = std::min(bossShortest, s.bossFrames);
        }
    }
    if (plays == 0) return;
    std::printf("stage %d: %d plays, %d cleared (%.1f %%), %.1f s each, %.2f hits/min, longest empty %.1f s", stageNo,
                plays, cleared, 100.0 * cleared / plays, frames * kSecondsPerFrame / plays, PerMinute(hits, frames),
                empty * kSecondsPerFrame);
    if (bossFights > 0) {
        std::printf(", boss %.1f s (%.1f to %.1f)", bossFrames * kSecondsPerFrame / bossFights,
                    bossShortest * kSecondsPerFrame, bossLongest * kSecondsPerFrame);
    }
    std::puts("");
}

void PrintGames(const std::vector<GameResult>& results) {
    for (const GameResult& r : results) {
        const std::string end =
            r.error[0]  ? r.error
            : r.stuck   ? "stuck"
            : r.cleared ? "cleared"
                        : "died in stage " + std::to_string(r.diedStage) + " at entry " + std::to_string(r.diedEntry);
        std::printf(
            "seed %-6llu %-32s %6d frames %7d points %3d hits, most %2d enemies %2d shots, %d lost, %d stayed\n",
            static_cast<unsigned long long>(r.seed), end.c_str(), r.frames, r.score, r.hits, r.mostEnemies, r.mostShots,
            r.spawnsLost, r.neverLeft);
    }
}

// Where games end, to find the hard places of a stage.
void PrintDeaths(const std::vector<GameResult>& results) {
    std::map<std::pair<int, int>, int> deaths;
    for (const GameResult& r : results) {
        if (r.diedStage >= 0) ++deaths[{r.diedStage, r.diedEntry}];
    }
    if (deaths.empty()) return;
    std::printf("deaths (stage:entry x games):");
    for (const auto& [where, games] : deaths) std::printf(" %d:%d x%d", where.first, where.second, games);
    std::puts("");
}

void PrintTable(const std::vector<GameResult>& results) {
    constexpr std::size_t kFewGames = 12;
    if (results.size() <= kFewGames) PrintGames(results);
    int cleared = 0, hits = 0, lost = 0, stayed = 0, enemies = 0, shots = 0, stuck = 0;
    long frames = 0;
    double seconds = 0, score = 0;
    for (const GameResult& r : results) {
        cleared += r.cleared, hits += r.hits, lost += r.spawnsLost, stayed += r.neverLeft, stuck += r.stuck;
        frames += r.frames, seconds += r.seconds, score += r.score;
        enemies = std::max(enemies, r.mostEnemies), shots = std::max(shots, r.mostShots);
    }
    const double games = static_cast<double>(results.size());
    std::printf(
        "%zu games: %d cleared (%.1f %%), %d stuck; %.2f hits/min, %.0f points, most %d enemies %d shots, "
        "%d spawns lost, %d stayed\n",
        results.size(), cleared, 100.0 * cleared / games, stuck, PerMinute(hits, static_cast<int>(frames)),
        score / games, enemies, shots, lost, stayed);
    for (const int stage : {1, 2, 3, 0}) PrintStage(results, stage);
    PrintDeaths(results);
    std::printf("%.0f frames per second of one core\n", seconds > 0 ? static_cast<double>(frames) / seconds : 0.0);
}

int Verify(const Options& options) {
    Recording recording;
    const std::string error = ReadRecording(options.verify, recording);
    if (!error.empty()) {
        std::fprintf(stderr, "tarnveil-sim: %s\n", error.c_str());
        return 1;
    }
    SimReport report;
    const std::string difference = VerifyRecording(recording, options.anyData, report);
    if (!difference.empty()) {
        std::printf("%s: differs: %s\n", options.verify.c_str(), difference.c_str());
        return 1;
    }
    std::printf("%s: the same in all %d frames, score %d\n", options.verify.c_str(), report.frames, report.score);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const Options options = ReadOptions(argc, argv);
    SetProgramFolder(options.folder);
    if (!options.verify.empty()) return Verify(options);
    const auto results = options.seeds == 1 ? std::vector{PlaySeed(options.sim)} : PlayAll(options);
    if (options.json) {
        PrintJson(results);
    } else {
        PrintTable(results);
    }
    const bool failed = std::any_of(results.begin(), results.end(), [](const auto& r) { return r.error[0] != 0; });
    return failed || static_cast<int>(results.size()) != options.seeds ? 1 : 0;
}
