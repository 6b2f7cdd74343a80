// Recording games: watches them and taps their events. The first one into a file that was asked for, every one into the
// player's runs.
#include <optional>
#include <utility>

#include "host/clock.h"
#include "host/files.h"
#include "platform/events.h"
#include "recording/keeper.h"
#include "recording/recording.h"
#include "shell/game_loop.h"
#include "state/main_form.h"
#include "state/options.h"

namespace {

constexpr int kJournalInterval = 26;  // frames: a second

struct Recorder {
    std::string path;  // of the first game; empty: not asked for
    std::string pilot{};
    bool keeps = false;  // every game becomes a run
    Recording recording{};
    RunJournal journal{};
    EventTime now{};
    bool running = false;
    bool done = false;      // the first game is written
    std::string problem{};  // why it could not be written
};
std::optional<Recorder> recorder;

bool WantsFile() {
    return !recorder->path.empty() && !recorder->done;
}

bool WantsRun() {
    return WantsFile() && recorder->path.ends_with(kRunEnding);
}

Recording HeaderOfGame(std::uint64_t seed) {
    Recording r;
    r.seed = seed;
    for (const Difficulty& difficulty : kDifficulties) {
        if ((MainForm.*difficulty.item).Checked) r.level = difficulty.level;
    }
    r.play = game.DigestMode;
    r.start = gameStart;
    r.options = CurrentOptions();
    r.joyId = game.JoyId;
    r.joyCenterX = game.JoyCenterX;
    r.joyCenterY = game.JoyCenterY;
    r.hiScore = game.HiScore;
    r.dataDigest = DataDigest();
    r.left = FindLeftovers(game);
    r.held = HeldKeys();
    r.sticks = JoystickReadings();
    return r;
}

void GameStarted(std::uint64_t seed) {
    Recorder& r = *recorder;
    if (!WantsFile() && !r.keeps) return;
    r.recording = HeaderOfGame(seed);
    r.recording.pilot = r.pilot;
    if (r.keeps || WantsRun()) r.recording.program = TARNVEIL_VERSION;
    // The first frame starts from a background that has been scrolled once already.
    r.recording.scroll = game.ScrollY;
    r.now = {};
    r.running = true;
    if (r.keeps) r.journal.Begin(r.recording);
}

void FrameDone() {
    Recorder& r = *recorder;
    if (!r.running) return;
    if (WantsFile()) r.recording.frames.push_back(DigestFrame(game));
    r.recording.endFrames = ++r.now.frame;
    r.now.yield = 0;
    r.recording.endScore = game.Score;
    r.recording.endEnergy = game.MyPower;
    r.recording.result.stage = game.StageNo;
    r.recording.result.spread += game.ShotMode != 0;
    if (!r.keeps && !WantsRun()) return;
    if (r.now.frame % kCheckInterval == 0) r.recording.checks.push_back(DigestState(game));
    if (r.keeps && r.now.frame % kJournalInterval == 0) r.journal.Add(r.recording);
}

// The fingerprints of all frames, or as a run.
std::vector<std::uint8_t> BytesOf(const Recorder& r) {
    Run run{.date = LocalDate(), .picture = PictureOfNow(), .recording = r.recording};
    if (WantsRun()) {
        run.recording.frames.clear();
        return PackRun(run);
    }
    run.recording.checks.clear();
    if (!r.keeps) run.recording.result = {};
    const std::string text = FormatRecording(run.recording);
    return {text.begin(), text.end()};
}

void WriteFile(Recorder& r) {
    const std::string reason = WriteWholeFile(r.path, BytesOf(r));
    r.done = true;
    if (!reason.empty()) r.problem = r.path + ": the recording cannot be written: " + reason;
}

// The best scores are on their way to the disk too; nobody waits for this one.
void KeepAsRun(Recorder& r) {
    Run run{.date = LocalDate(), .picture = PictureOfNow(), .recording = r.recording};
    run.recording.frames.clear();
    const std::string problem = run.recording.endFrames > 0 ? KeepRun(run) : "";
    if (!problem.empty()) LogLine(problem);
    r.journal.End();
}

// Ends the recording with the frames it has. It is written now: what comes after the game cannot lose it.
void CutOff() {
    Recorder& r = *recorder;
    if (!r.running) return;
    r.recording.endScore = game.Score;
    r.recording.endEnergy = game.MyPower;
    r.recording.result.how = OutcomeOf(r.recording, game);
    r.running = false;
    if (WantsFile()) WriteFile(r);
    if (r.keeps) KeepAsRun(r);
}

void GameEnded() {
    const bool byEvents = !gameAsked;  // else there is nothing in the recording that ends it
    if (recorder->running && byEvents) recorder->recording.endDigest = DigestState(game);
    CutOff();
}

bool OpensEditor(const InputEvent& event) {
    if (event.kind != InputEvent::Kind::menu) return false;
    const MenuItem* item = FindMenuItem(event.item);
    return item && PopupOf(*item) == &MainForm.Menu200;
}

void Tap(std::vector<InputEvent>& events) {
    if (!recorder->running) return;
    for (const InputEvent& event : events) {
        if (OpensEditor(event)) {
            LogLine("recording: ended where an editor was opened");
            return CutOff();
        }
        if (!LeavesProgram(event)) recorder->recording.events.push_back({recorder->now, event});
    }
    ++recorder->now.yield;
}

void Watch() {
    if (!recorder) recorder.emplace();
    SetEventTap(Tap);
    gameWatcher = {GameStarted, FrameDone, GameEnded, CutOff};
}

}  // namespace

void StartRecorder(const std::string& path, const std::string& pilot) {
    recorder.reset();
    Watch();
    recorder->path = path;
    recorder->pilot = pilot;
}

void StartKeepingRuns() {
    Watch();
    recorder->keeps = true;
}

void ContinueRecorder(const Recording& sofar, EventTime now) {
    Watch();
    Recorder& r = *recorder;
    r.keeps = true;
    r.recording = sofar;
    r.recording.program = TARNVEIL_VERSION;
    r.now = now;
    r.running = true;
    r.journal.Begin(sofar);
}

void DropRecording() {
    if (!recorder) return;
    recorder->running = false;
    recorder->journal.End();
}

int FramesRecorded() {
    return recorder ? recorder->now.frame : 0;
}

std::string FinishRecorder() {
    if (!recorder) return {};
    CutOff();
    std::string problem = std::move(recorder->problem);
    recorder.reset();
    SetEventTap(nullptr);
    gameWatcher = {};
    return problem;
}
