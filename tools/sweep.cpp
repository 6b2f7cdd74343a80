#include "sweep.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <unordered_set>

#include "game_lines.h"
#include "progress.h"
#include "summary.h"

namespace {

// Bounds the memory: games are played so many at a time.
constexpr std::size_t kBlock = 4096;

bool Complain(const std::string& message) {
    std::fprintf(stderr, "tarnveil-sim: %s\n", message.c_str());
    return false;
}

// Reads files of game lines that belong to one sweep, each seed once.
class LineReader {
  public:
    std::string sweep;  // of the lines; empty: the first line decides

    // Calls `take` with each line's text and game; it says what is wrong with it. The length of what was read, or
    // nothing after a message. With `interrupted` a last line that was still being written is passed over.
    template <typename Take>
    std::optional<std::uintmax_t> Read(const std::string& file, bool interrupted, const Take& take) {
        std::ifstream in(file, std::ios::binary);
        if (!in) return Complain(file + ": cannot be read"), std::nullopt;
        std::uintmax_t length = 0;
        int number = 1;
        for (std::string line; std::getline(in, line); ++number) {
            if (interrupted && in.eof() && BeginsGameLine(line)) break;
            GameResult result;
            std::string fault = Check(line, result);
            if (fault.empty()) fault = take(line, result);
            if (!fault.empty()) return Complain(file + ":" + std::to_string(number) + ": " + fault), std::nullopt;
            length += line.size() + 1;
        }
        return length;
    }
    bool Has(std::uint64_t seed) const { return seeds_.contains(seed); }

  private:
    std::string Check(const std::string& line, GameResult& result) {
        std::string of;
        std::string fault = ReadGameLine(line, of, result);
        if (!fault.empty()) return fault;
        if (sweep.empty()) sweep = of;
        if (sweep != of) return "is of the sweep " + of + ", not of " + sweep;
        return seeds_.insert(result.seed).second ? "" : "seed " + std::to_string(result.seed) + " stands here again";
    }

    std::unordered_set<std::uint64_t> seeds_;
};

// One sweep that is going on: where its lines go, and what they add up to.
class Running {
  public:
    explicit Running(const SweepPlan& plan)
        : plan_(plan), progress_(Games(), !plan.json || isatty(STDOUT_FILENO) == 0) {
        lines_.sweep = SweepOf(plan.sim);
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    ~Running() {
        if (file_) std::fclose(file_);
    }

    // Takes over what is finished already. False after a message.
    bool Resume() {
        if (plan_.resume.empty()) return true;
        if (std::filesystem::exists(plan_.resume) && !TakeOver()) return false;
        file_ = std::fopen(plan_.resume.c_str(), "a");
        return file_ || Complain(plan_.resume + ": cannot be written");
    }

    void Play() {
        std::vector<SimOptions> block;
        for (std::uint64_t i = plan_.shard - 1; i < plan_.seeds; i += plan_.shards) {
            SimOptions next = plan_.sim;
            next.seed += i;
            if (!lines_.Has(next.seed)) block.push_back(next);
            if (block.size() == kBlock) PlayBlock(block);
        }
        PlayBlock(block);
    }

    int Finish() {
        progress_.Clear();
        if (!plan_.json) summary_.Print();
        if (seconds_ > 0) {
            std::fprintf(stderr, "%.0f frames per second of one core\n", static_cast<double>(frames_) / seconds_);
        }
        return failed_ ? 1 : 0;
    }

  private:
    bool TakeOver() {
        const auto take = [this](const std::string& line, const GameResult& result) {
            Count(line, result);
            return Wanted(result.seed) ? "" : "seed " + std::to_string(result.seed) + " is not of this shard";
        };
        const auto length = lines_.Read(plan_.resume, true, take);
        std::error_code error;
        if (length) std::filesystem::resize_file(plan_.resume, *length, error);
        return length && (!error || Complain(plan_.resume + ": " + error.message()));
    }

    bool Wanted(std::uint64_t seed) const {
        const std::uint64_t i = seed - plan_.sim.seed;
        return i < plan_.seeds && i % plan_.shards == plan_.shard - 1;
    }
    std::uint64_t Games() const { return (plan_.seeds + plan_.shards - plan_.shard) / plan_.shards; }

    void PlayBlock(std::vector<SimOptions>& block) {
        PlayMany(block, plan_.jobs, [this](const GameResult& result) { Keep(result); });
        block.clear();
    }

    void Keep(const GameResult& result) {
        frames_ += result.frames, seconds_ += result.seconds;
        if (result.error[0]) {
            progress_.Clear();
            Complain("seed " + std::to_string(result.seed) + ": " + result.error);
            failed_ = true;
        }
        if (!result.done) return;  // not kept, so that it is tried again
        const std::string line = GameLine(lines_.sweep, result);
        Count(line, result);
        if (!file_) return;
        if (std::fputs((line + "\n").c_str(), file_) < 0 || std::fflush(file_) != 0) {
            failed_ = !Complain(plan_.resume + ": cannot be written");
        }
    }

    void Count(const std::string& line, const GameResult& result) {
        failed_ = failed_ || result.error[0];  // also in a game that an earlier run has kept
        summary_.Add(result);
        if (plan_.json) std::puts(line.c_str());
        progress_.Step();
    }

    const SweepPlan& plan_;
    LineReader lines_;
    Summary summary_;
    Progress progress_;
    std::FILE* file_ = nullptr;
    long frames_ = 0;
    double seconds_ = 0;
    bool failed_ = false;
};

// Seeds between the first and the last that no file holds.
bool TellGaps(const std::map<std::uint64_t, std::string>& lines) {
    if (lines.empty()) return true;
    std::uint64_t expected = lines.begin()->first;
    for (const auto& [seed, line] : lines) {
        if (seed != expected) return Complain("seed " + std::to_string(expected) + " is missing");
        ++expected;
    }
    return true;
}

}  // namespace

int Sweep(const SweepPlan& plan) {
    Running sweep(plan);
    if (!sweep.Resume()) return 1;
    sweep.Play();
    return sweep.Finish();
}

int Merge(const std::vector<std::string>& files, bool json) {
    LineReader reader;
    Summary summary;
    std::map<std::uint64_t, std::string> lines;
    bool failed = false;
    const auto take = [&](const std::string& line, const GameResult& result) {
        summary.Add(result);
        lines.emplace(result.seed, json ? line : "");
        failed = failed || result.error[0];
        return std::string();
    };
    for (const std::string& file : files) {
        if (!reader.Read(file, false, take)) return 1;
    }
    if (!json) summary.Print();
    for (const auto& [seed, line] : lines) {
        if (json) std::puts(line.c_str());
    }
    return TellGaps(lines) && !failed ? 0 : 1;
}
