// Writing recordings: watches the game and taps its events.
#include <optional>
#include <utility>

#include "host/files.h"
#include "platform/events.h"
#include "recording/recording.h"
#include "shell/game_loop.h"
#include "state/main_form.h"
#include "state/options.h"

namespace {

struct Recorder {
    std::string path;
    std::string pilot;
    Recording recording;
    EventTime now;
    bool running = false;
    bool done = false;
    std::string problem{};  // why it could not be written
};
std::optional<Recorder> recorder;

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
    r.held = HeldKeys();
    r.sticks = JoystickReadings();
    return r;
}

void GameStarted(std::uint64_t seed) {
    if (recorder->done) return;
    recorder->recording = HeaderOfGame(seed);
    recorder->recording.pilot = recorder->pilot;
    // The first frame starts from a background that has been scrolled once already.
    recorder->recording.scroll = game.ScrollY;
    recorder->running = true;
}

void FrameDone() {
    if (!recorder->running) return;
    recorder->recording.frames.push_back(DigestFrame(game));
    recorder->recording.endFrames = ++recorder->now.frame;
    recorder->now.yield = 0;
}

void Write(Recorder& r) {
    const std::string text = FormatRecording(r.recording);
    const std::string reason =
        WriteWholeFile(r.path, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    if (!reason.empty()) r.problem = r.path + ": the recording cannot be written: " + reason;
}

// Ends the recording with the frames it has. It is written now: what comes after the game cannot lose it.
void CutOff() {
    Recorder& r = *recorder;
    if (!r.running) return;
    r.recording.endScore = game.Score;
    r.recording.endEnergy = game.MyPower;
    r.running = false;
    r.done = true;
    Write(r);
}

void GameEnded() {
    if (recorder->running) recorder->recording.endDigest = DigestState(game);
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

}  // namespace

void StartRecorder(const std::string& path, const std::string& pilot) {
    recorder.emplace();
    recorder->path = path;
    recorder->pilot = pilot;
    SetEventTap(Tap);
    gameWatcher = {GameStarted, FrameDone, GameEnded, CutOff};
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
