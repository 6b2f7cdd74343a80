#include "simulation.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <memory>

#include "host/headless/headless.h"
#include "host/window.h"
#include "pilot.h"
#include "platform/events.h"
#include "shell/game_loop.h"
#include "shell/main_form.h"
#include "shell/random.h"
#include "shell/title_screen.h"
#include "stage/stage_script.h"

namespace {

constexpr int kLongStay = 26 * 60;  // frames; about a minute
constexpr Byte kFirstBossKind = 37;

// The run that is going on; watchers and taps have no argument to carry it.
struct Run {
    SimOptions options;
    SimReport report;
    std::unique_ptr<Pilot> pilot;
    PilotHands hands;
    Single lastPower = 10;
    int empty = 0;
    std::array<int, kEnemySlots> age{};
    GameWatcher recorder;  // goes first, when the run is recorded
};
Run run;
EventTap recorderTap = nullptr;

bool InSight(Single x, Single y, int width, int height) {
    return x + static_cast<Single>(width) > 0 && x < 320 && y + static_cast<Single>(height) > 0 && y < 480;
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
        run.empty = 0;
    }
    return stages.back();
}

void CountEnemies(StageReport& stage, bool& anythingInSight) {
    int alive = 0;
    bool boss = false;
    for (int i = 0; i <= game.EnemyMax; ++i) {
        const EnemyType& enemy = game.Enemy[i];
        int& age = run.age[static_cast<std::size_t>(i)];
        age = enemy.State == 1 ? age + 1 : 0;
        if (enemy.State == 1) ++alive;
        if (enemy.State == 1 && enemy.Kind >= kFirstBossKind) boss = true;
        if (enemy.State == 1 && enemy.Kind < kFirstBossKind && age == kLongStay) ++run.report.neverLeft;
        anythingInSight = anythingInSight || EnemyInSight(enemy);
    }
    run.report.mostEnemies = std::max(run.report.mostEnemies, alive);
    stage.bossFrames += boss;
}

void CountShots(bool& anythingInSight) {
    int shots = 0;
    for (int j = 0; j <= game.EneShotMax; ++j) shots += game.EneShot[j].Used == 1;
    run.report.mostShots = std::max(run.report.mostShots, shots);
    anythingInSight = anythingInSight || shots > 0;
}

void CountHits(StageReport& stage) {
    if (game.MyPower < run.lastPower) {
        ++stage.hits;
        ++run.report.hits;
    }
    run.lastPower = game.MyPower;
    if (game.MyDead != False && run.report.diedStage < 0) {
        run.report.diedStage = game.StageNo;
        run.report.diedEntry = game.StageIndex;
    }
}

// Without an image nothing is composed, which is most of a frame's work.
void DropPictures() {
    MainForm.Crt.image.clear();
    MainForm.Crt.imageWidth = 0;
    MainForm.Crt.imageHeight = 0;
}

// A play of stage 1 alone is a normal game that is left where stage 2 begins.
bool StageOneDone() {
    return run.options.play == SimPlay::stage1 && game.StageNo > 1;
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
    ++stage.frames;
    bool inSight = game.StageClear != 0;  // the clear message counts as something to see
    CountEnemies(stage, inSight);
    CountShots(inSight);
    CountHits(stage);
    run.empty = inSight ? 0 : run.empty + 1;
    stage.emptyLongest = std::max(stage.emptyLongest, run.empty);
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

void ChoosePlay(SimPlay play, int level) {
    (level == 1 ? MENU101_Click : level == 5 ? MENU103_Click : MENU102_Click)();
    const bool normal = play == SimPlay::wholeGame || play == SimPlay::stage1;
    (normal                    ? Menu401_Click
     : play == SimPlay::stage2 ? Menu402_Click
     : play == SimPlay::stage3 ? Menu403_Click
                               : Menu404_Click)();
}

void FreshProgram() {
    headless::Reset();
    headless::TheHost().stepPerReading = 13;
    game = GameState{};
    MainForm = MainFormType{};
    game.ScreenW = 320;
    game.ScreenH = 480;
    LoadMainForm();
    stageWatcher = {SpawnLost};
    run = {};
}

double ProcessorSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

// Runs the game that is set up; the title and its pauses are left out.
void PlayGame() {
    const double start = ProcessorSeconds();
    try {
        GameLoop();
    } catch (const EndProgram&) {
        const auto& messages = headless::TheHost().messages;
        run.report.error = messages.empty() ? "the program was ended" : messages.back();
    }
    run.report.seconds = ProcessorSeconds() - start;
}

}  // namespace

SimReport Simulate(const SimOptions& options) {
    FreshProgram();
    run.options = options;
    run.pilot = MakePilot(options.pilot, options.seed * 7919 + 17);
    ChoosePlay(options.play, options.level);
    FixSeed(options.seed);
    recorderTap = nullptr;
    if (!options.recordTo.empty()) {
        StartRecorder(options.recordTo);
        run.recorder = gameWatcher;
        recorderTap = GetEventTap();
    }
    gameWatcher = {GameStarted, FrameDone, GameEnded};
    SetEventTap(Tap);
    PlayGame();
    const std::string message = FinishRecorder();
    if (run.report.error.empty()) run.report.error = message;
    gameWatcher = {};
    SetEventTap(nullptr);
    return run.report;
}

std::string VerifyRecording(const Recording& recording, bool anyData, SimReport& report) {
    FreshProgram();
    if (!anyData && DataDigest() != recording.dataDigest) {
        return "the data tables are not those it was recorded with";
    }
    StartReplay(recording);
    const double start = ProcessorSeconds();
    PlayGame();
    const ReplayResult result = Replay();  // NOLINT(performance-unnecessary-copy-initialization): stopped below
    report = run.report;
    report.frames = result.frame;
    report.score = game.Score;
    report.seconds = ProcessorSeconds() - start;
    StopReplay();
    if (result.state == ReplayState::finished) return {};
    if (result.message.empty()) return report.error;
    return "frame " + std::to_string(result.frame) + ": " + result.message;
}
