// Plays a recorded game at full speed, without pictures, and says how it went: for a link that somebody opens, in a
// worker beside the game, and for checks in browsers and node.
#include <emscripten/bind.h>

#include "host/headless/headless.h"
#include "host/web/files.h"
#include "host/window.h"
#include "recording/forget_program.h"
#include "recording/link.h"
#include "recording/recording.h"
#include "shell/game_loop.h"
#include "shell/main_routine.h"
#include "stage/plays.h"
#include "state/main_form.h"
#include "state/options.h"
#include "toolkit/folder.h"

namespace {

using emscripten::val;

void (*replayFrameDone)() = nullptr;
int framesSpread = 0;  // with the four-way spread chosen
Integer furthestStage = 0;

void FrameDone() {
    MainForm.Crt.image.clear();  // without an image nothing is composed, which is most of a frame's work
    MainForm.Crt.imageWidth = MainForm.Crt.imageHeight = 0;
    framesSpread += game.ShotMode != 0;
    furthestStage = game.StageNo;
    replayFrameDone();
}

void FreshProgram() {
    headless::Reset();
    headless::TheHost().stepPerReading = 13;
    ForgetProgram();
    StartProgram();
}

void PlayRecording(const Recording& recording) {
    StartReplay(recording);
    replayFrameDone = gameWatcher.FrameDone;
    gameWatcher.FrameDone = FrameDone;
    framesSpread = 0;
    try {
        GameLoop();
    } catch (const EndProgram&) {
    }
}

std::string Read(const std::string& text, Recording& recording) {
    constexpr std::string_view kRecordingStart = "tarnveil-recording";
    return text.starts_with(kRecordingStart) ? ParseRecording(text, recording) : ParseLink(text, recording);
}

val Told(const Recording& recording) {
    val told = val::object();
    told.set("level", recording.level);
    told.set("play", recording.play);
    told.set("score", recording.endScore);
    told.set("frames", recording.endFrames);
    told.set("invincible", recording.options[&MainFormType::Menu003]);
    told.set("seed", std::to_string(recording.seed));
    return told;
}

val Failed(const std::string& error) {
    val told = val::object();
    told.set("error", error);
    return told;
}

// What a recording or link says of itself: {level, play, score, frames, invincible, seed}, or {error}.
val Describe(const std::string& text) {
    Recording recording;
    const std::string error = Read(text, recording);
    return error.empty() ? Told(recording) : Failed(error);
}

// The same, and how it is when it is played: {agrees, message, played: frames, spread: frames with the four-way spread,
// stage, won, energy, digest}.
val Judge(const std::string& text) {
    Recording recording;
    const std::string error = Read(text, recording);
    if (!error.empty()) return Failed(error);
    FreshProgram();
    if (DataDigest() != recording.dataDigest) return Failed("it was played on other tables than the game's own");
    PlayRecording(recording);
    const ReplayResult result = Replay();
    val told = Told(recording);
    told.set("agrees", result.state == ReplayState::finished && game.Score == recording.endScore);
    told.set("message", result.message);
    told.set("played", result.frame);
    told.set("spread", framesSpread);
    told.set("stage", furthestStage);
    told.set("won", OutcomeOf(recording, game) == Outcome::won);
    told.set("energy", game.MyPower);
    told.set("digest", std::to_string(DigestState(game)));
    StopReplay();
    return told;
}

// What the page calls difficulties and plays, by their numbers: {levels, plays}.
val Names() {
    val levels = val::object(), plays = val::object();
    for (const Difficulty& row : kDifficulties) levels.set(row.level, (MainForm.*row.item).Caption);
    for (const Play& row : kPlays)
        plays.set(row.number, row.number == kNormalPlay ? "Whole game" : (MainForm.*row.item).Caption);
    val names = val::object();
    names.set("levels", levels);
    names.set("plays", plays);
    return names;
}

// The link's word for a recording's text; empty when it is too long or no recording.
std::string LinkOfText(const std::string& text) {
    Recording recording;
    return Read(text, recording).empty() ? LinkOf(recording) : "";
}

}  // namespace

int main() {
    SetProgramFolder(web::kShippedFolder);
}

EMSCRIPTEN_BINDINGS(judge) {
    emscripten::function("describe", &Describe);
    emscripten::function("judge", &Judge);
    emscripten::function("linkOf", &LinkOfText);
    emscripten::function("names", &Names);
}
