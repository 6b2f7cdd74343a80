#include "many_games.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <new>
#include <span>
#include <system_error>

namespace {

// Memory that the processes share. Games are taken in turn by whoever is free, so none waits for another.
class Shared {
  public:
    explicit Shared(std::size_t games) : bytes_(sizeof(std::atomic<std::size_t>) + games * sizeof(GameResult)) {
        memory_ = mmap(nullptr, bytes_, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        if (memory_ == MAP_FAILED) throw std::bad_alloc();
    }
    Shared(const Shared&) = delete;
    Shared& operator=(const Shared&) = delete;
    ~Shared() { munmap(memory_, bytes_); }

    std::atomic<std::size_t>& Next() { return *static_cast<std::atomic<std::size_t>*>(memory_); }
    GameResult* Results() { return reinterpret_cast<GameResult*>(&Next() + 1); }

  private:
    std::size_t bytes_;
    void* memory_;
};

// Says which games are finished, for as long as a process holds its writing end.
struct Pipe {
    Pipe() {
        if (pipe(ends) != 0) throw std::system_error(errno, std::generic_category(), "pipe");
    }
    int ends[2] = {};
};

[[noreturn]] void PlayWhatIsLeft(Shared& shared, std::span<const SimOptions> games, const Pipe& finished) {
    close(finished.ends[0]);
    for (std::size_t i = shared.Next()++; i < games.size(); i = shared.Next()++) {
        shared.Results()[i] = PlayOne(games[i]);
        if (write(finished.ends[1], &i, sizeof i) != sizeof i) break;  // nobody waits for it any more
    }
    _exit(0);
}

// Hands the results on in their order while they come in. Returns when no process is left.
void HandOn(const GameResult* results, std::size_t games, const Pipe& finished, const InOrder& inOrder) {
    std::vector<bool> there(games);
    std::size_t next = 0, i = 0;
    while (read(finished.ends[0], &i, sizeof i) == sizeof i) {
        there[i] = true;
        for (; next < games && there[next]; ++next) {
            if (inOrder) inOrder(results[next]);
        }
    }
    for (; next < games; ++next) {
        if (inOrder) inOrder(results[next]);
    }
}

void MarkAll(GameResult* results, std::span<const SimOptions> games) {
    for (std::size_t i = 0; i < games.size(); ++i) {
        results[i].seed = games[i].seed;
        std::snprintf(results[i].error, sizeof results[i].error, "its process died");
    }
}

std::vector<GameResult> PlayHere(const std::vector<SimOptions>& games, const InOrder& inOrder) {
    std::vector<GameResult> results;
    for (const SimOptions& game : games) {
        results.push_back(PlayOne(game));
        if (inOrder) inOrder(results.back());
    }
    return results;
}

}  // namespace

GameResult PlayOne(const SimOptions& options) {
    const SimReport report = Simulate(options);
    GameResult r{};
    r.seed = options.seed;
    r.cleared = report.cleared, r.stuck = report.stuck, r.diedStage = report.diedStage;
    r.diedEntry = report.diedEntry, r.frames = report.frames, r.score = report.score, r.hits = report.hits;
    r.mostEnemies = report.mostEnemies, r.mostShots = report.mostShots, r.spawnsLost = report.spawnsLost;
    r.neverLeft = report.neverLeft, r.seconds = report.seconds;
    r.done = true;
    for (const StageReport& stage : report.stages) {
        if (r.stages < kMostStages) r.stage[r.stages++] = stage;
    }
    std::snprintf(r.error, sizeof r.error, "%s", report.error.c_str());
    return r;
}

std::vector<GameResult> PlayMany(const std::vector<SimOptions>& games, int jobs, const InOrder& inOrder) {
    jobs = static_cast<int>(std::min(games.size(), static_cast<std::size_t>(jobs)));
    if (jobs <= 1) return PlayHere(games, inOrder);
    Shared shared(games.size());
    MarkAll(shared.Results(), games);
    const Pipe finished;
    std::fflush(nullptr);  // or each process writes what is waiting
    for (int job = 0; job < jobs; ++job) {
        if (fork() == 0) PlayWhatIsLeft(shared, games, finished);
    }
    close(finished.ends[1]);
    HandOn(shared.Results(), games.size(), finished, inOrder);
    close(finished.ends[0]);
    while (wait(nullptr) > 0) {
    }
    return {shared.Results(), shared.Results() + games.size()};
}

std::vector<SimOptions> SeedsOf(const SimOptions& options, int seeds) {
    std::vector<SimOptions> games(static_cast<std::size_t>(seeds), options);
    for (std::size_t i = 0; i < games.size(); ++i) games[i].seed += i;
    return games;
}
