#include "simulation.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <memory>

#include "combat/fire_patterns.h"
#include "fresh_program.h"
#include "host/headless/headless.h"
#include "host/window.h"
#include "pilot.h"
#include "platform/events.h"
#include "renew.h"
#include "shell/game_loop.h"
#include "shell/main_routine.h"
#include "stage/stage_script.h"
#include "state/field_size.h"
#include "state/main_form.h"
#include "state/options.h"
#include "state/random.h"

namespace {

constexpr std::uint32_t kClockStep = 13;  // ms
constexpr int kLongStay = 26 * 60;        // frames; about a minute

// The run that is going on; watchers and taps have no argument to carry it.
struct Run {
    SimOptions options;
    SimReport report;
    std::unique_ptr<Pilot> pilot;
    PilotHands hands;
    int empty = 0;
    int lonely = 0;
    int safe = 0;
    std::array<int, kEnemySlots> age{};
    struct Birth {
        Byte code, kind;
    };
    std::array<Birth, kEneShotSlots> births{};  // of the shots in flight
    std::vector<int> hitters;                   // shots that have hit in this frame
    GameWatcher recorder;                       // goes first, when the run is recorded
};
Run run;
EventTap recorderTap = nullptr;

bool InSight(Single x, Single y, int width, int height) {
    return x + static_cast<Single>(width) > 0 && x < kFieldWidth && y + static_cast<Single>(height) > 0 &&
           y < kFieldHeight;
}

bool EnemyInSight(const EnemyType& enemy) {
    if (enemy.State == 0 || enemy.Kind >= kEnemyKinds) return false;
    const EnemyDataType& kind = game.EnemyData[enemy.Kind];
    return InSight(enemy.X, enemy.Y, kind.Width, kind.Height);
}

StageReport& CurrentStage() {
    auto& stages = run.report.stages;
    if (stages.empty() || stages.back().stage != game.StageNo) {
        if (!stages.empty()) stages.back().cleared = true;
        stages.push_back({game.StageNo});
        run.empty = run.lonely = run.safe = 0;
    }
    return stages.back();
}

struct Sight {
    int live = 0;       // live enemies in sight
    int exploding = 0;  // explosions in sight
    int shots = 0;
    bool boss = false;
};

Sight LookAtField() {
    Sight sight;
    for (int i = 0; i <= game.EnemyMax; ++i) {
        const EnemyType& enemy = game.Enemy[i];
        if (EnemyInSight(enemy)) ++(enemy.State == 1 ? sight.live : sight.exploding);
        if (enemy.State == 1 && enemy.Kind >= kFirstBoss) sight.boss = true;
    }
    for (int j = 0; j <= game.EneShotMax; ++j) sight.shots += game.EneShot[j].Used == 1;
    return sight;
}

void CountEnemies() {
    int alive = 0;
    for (int i = 0; i <= game.EnemyMax; ++i) {
        const EnemyType& enemy = game.Enemy[i];
        int& age = run.age[static_cast<std::size_t>(i)];
        age = enemy.State == 1 ? age + 1 : 0;
        alive += enemy.State == 1;
        if (enemy.State == 1 && enemy.Kind < kFirstBoss && age == kLongStay) ++run.report.neverLeft;
    }
    run.report.mostEnemies = std::max(run.report.mostEnemies, alive);
}

void CountBirth(int shot, Integer slot, Byte code) {
    run.births[static_cast<std::size_t>(shot)] = {code, game.Enemy[slot].Kind};
    const EneShotType& born = game.EneShot[shot];
    if (!run.report.stages.empty()) run.report.stages.back().offScreen += !InSight(born.X, born.Y, 1, 1);
}

void CountHitter(int shot) {
    run.hitters.push_back(shot);
}

void CountHits(StageReport& stage) {
    for (const int shot : run.hitters) {
        const auto& birth = run.births[static_cast<std::size_t>(shot)];
        ++stage.hits, ++run.report.hits;
        ++stage.hitsByCode[birth.code], ++stage.hitsByKind[birth.kind];
        stage.wayHits += stage.bossFrames == 0;
    }
    run.safe = run.hitters.empty() ? run.safe + 1 : 0;
    stage.longestSafe = std::max(stage.longestSafe, run.safe);
    if (game.MyDead != False && run.report.diedStage < 0) {
        run.report.diedStage = game.StageNo;
        run.report.diedEntry = game.StageIndex;
    }
}

// Rhythm is a matter of the way to the boss; from there on the player decides how long things last.
void CountWay(StageReport& stage, const Sight& sight) {
    stage.bossFrames += sight.boss;
    if (stage.bossFrames > 0 || game.StageClear != 0) return;
    ++stage.wayFrames;
    run.lonely = sight.live > 0 ? 0 : run.lonely + 1;
    stage.lonely += run.lonely > 0;
    stage.lonelyLongest = std::max(stage.lonelyLongest, run.lonely);
    stage.enemies += sight.live;
    stage.shots += sight.shots;
}

void CountEmptiness(StageReport& stage, const Sight& sight) {
    // the clear message counts as something to see
    const bool something = sight.live + sight.exploding + sight.shots > 0 || game.StageClear != 0;
    run.empty = something ? 0 : run.empty + 1;
    stage.emptyLongest = std::max(stage.emptyLongest, run.empty);
}

void CountTime(const StageReport& stage, const Sight& sight) {
    if (run.report.stages.size() != 1) return;
    const auto bin = static_cast<std::size_t>((stage.frames - 1) / kBinFrames);
    if (run.report.bins.size() <= bin) run.report.bins.resize(bin + 1);
    TimeBin& b = run.report.bins[bin];
    ++b.frames, b.enemies += sight.live, b.shots += sight.shots, b.hits += static_cast<int>(run.hitters.size());
}

void CountFrame(StageReport& stage) {
    const Sight sight = LookAtField();
    ++stage.frames;
    run.report.mostShots = std::max(run.report.mostShots, sight.shots);
    CountEnemies();
    CountHits(stage);
    CountWay(stage, sight);
    CountEmptiness(stage, sight);
    CountTime(stage, sight);
    run.hitters.clear();
}

// Without an image nothing is composed, which is most of a frame's work.
void DropPictures() {
    MainForm.Crt.image.clear();
    MainForm.Crt.imageWidth = 0;
    MainForm.Crt.imageHeight = 0;
}

// A play of stage 1 alone is a normal game that is left where stage 2 begins.
bool StageOneDone() {
    return run.options.play == SimPlay{} && game.StageNo > FindPlay(kNormalPlay)->stageNo;
}

void FrameDone() {
    if (run.recorder.FrameDone) run.recorder.FrameDone();
    DropPictures();
    headless::TheHost().audio.clear();
    headless::TheHost().log.clear();
    ++run.report.frames;
    run.report.score = game.Score;
    if (StageOneDone()) {
        run.report.stages.back().cleared = true;
        return;
    }
    StageReport& stage = CurrentStage();
    CountFrame(stage);
    if (run.report.frames >= run.options.frameLimit) run.report.stuck = true;
}

void GameEnded() {
    if (run.recorder.Ended) run.recorder.Ended();
    const bool died = run.report.diedStage >= 0;
    run.report.cleared = !died && !run.report.stuck;
    if (run.report.cleared && !run.report.stages.empty()) run.report.stages.back().cleared = true;
}

void GameStarted(std::uint64_t seed) {
    if (run.recorder.Started) run.recorder.Started(seed);
    DropPictures();
}

// In the ending and after death a key that ends it. A game is left as a player leaves it, so that it can be recorded.
void Tap(std::vector<InputEvent>& events) {
    const bool over = game.AllClear != False || game.GameOver != 0;
    if (run.report.stuck || StageOneDone()) {
        events.push_back({.kind = InputEvent::Kind::menu, .item = MainForm.Menu301.Name});
    } else if (over) {
        events.push_back({InputEvent::Kind::keyDown, VK_SPACE});
        events.push_back({InputEvent::Kind::keyUp, VK_SPACE});
    } else if (run.pilot) {
        run.hands.Press(run.pilot->Decide(game), events);
    }
    if (recorderTap) recorderTap(events);
}

void SpawnLost(const StageDataType&) {
    ++run.report.spawnsLost;
}

double ProcessorSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

// Plays to the end of the routine or of the program, which is told as an error.
void PlayBy(void (*routine)(), SimReport& report) {
    const double start = ProcessorSeconds();
    try {
        routine();
    } catch (const EndProgram& end) {
        report.error = end.reason;
    }
    report.seconds = ProcessorSeconds() - start;
}

}  // namespace

SimReport Simulate(const SimOptions& options) {
    FreshProgram(kClockStep);
    stageWatcher = {SpawnLost};
    shotWatcher = {CountBirth, CountHitter};
    run = {};
    run.options = options;
    run.pilot = MakePilot(options.pilot, options.weapon, options.seed * 7919 + 17);
    SetOptions(options.options);
    ChooseRow(kDifficulties, &Difficulty::level, options.level);
    ChooseRow(kPlays, &Play::number, options.play.number);
    FixSeed(options.seed);
    gameStart = options.start;
    recorderTap = nullptr;
    if (!options.recordTo.empty()) {
        StartRecorder(options.recordTo, PilotLine(options));
        run.recorder = gameWatcher;
        recorderTap = GetEventTap();
    }
    gameWatcher = {GameStarted, FrameDone, GameEnded};
    SetEventTap(Tap);
    PlayBy(GameLoop, run.report);  // the title and its pauses are left out
    const std::string message = FinishRecorder();
    if (run.report.error.empty()) run.report.error = message;
    gameWatcher = {};
    SetEventTap(nullptr);
    return run.report;
}

std::string VerifyRecording(const Recording& recording, bool anyData, SimReport& report) {
    NewProgram(kClockStep);
    if (!anyData && DataDigest() != recording.dataDigest) {
        return "the data tables are not those it was recorded with";
    }
    StartReplay(recording);
    report = {};
    PlayBy(Main, report);
    const ReplayResult result = Replay();  // NOLINT(performance-unnecessary-copy-initialization): stopped below
    report.frames = result.frame;
    report.score = game.Score;
    StopReplay();
    if (result.state == ReplayState::finished) return {};
    if (result.message.empty()) return report.error;
    return "frame " + std::to_string(result.frame) + ": " + result.message;
}
