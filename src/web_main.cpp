// The browser's program: what the page asks for, the player's files, then the game.
#include <emscripten/bind.h>

#include <exception>

#include "host/web/files.h"
#include "host/web/page.h"
#include "host/window.h"
#include "recording/link.h"
#include "recording/recording.h"
#include "shell/game_loop.h"
#include "shell/main_routine.h"
#include "state/main_form.h"
#include "state/random.h"
#include "toolkit/folder.h"

namespace {

using emscripten::val;
using web::Page;

// Every game is recorded, so that it can be shared when it is over.
constexpr const char* kLastGame = "/last-game";
GameWatcher recorder;

void GameOver() {
    recorder.Ended();
    Recording game;
    if (!ReadRecording(kLastGame, game).empty()) return;
    val told = val::object();
    told.set("link", LinkOf(game));
    told.set("level", game.level);
    told.set("play", game.play);
    told.set("score", game.endScore);
    told.set("frames", game.endFrames);
    told.set("energy", game.endEnergy);
    Page().call<void>("gameOver", told);
}

void NewGame(std::uint64_t seed);

void WatchGames() {
    StartRecorder(kLastGame);
    recorder = gameWatcher;
    gameWatcher = {NewGame, recorder.FrameDone, GameOver};
}

void NewGame(std::uint64_t seed) {
    FinishRecorder();
    WatchGames();
    recorder.Started(seed);
    Page().call<void>("gameStarted");
}

std::string KeepFile(const std::string& name, std::span<const std::uint8_t> bytes) {
    return Page().call<std::string>("keepFile", name, val(emscripten::typed_memory_view(bytes.size(), bytes.data())));
}

void PutFile(const std::string& name, const val& bytes) {
    web::PutPlayerFile(name, emscripten::convertJSArrayToNumberVector<std::uint8_t>(bytes));
}

void TakePlayerFiles() {
    const val files = Page()["files"];
    const auto count = files["length"].as<unsigned>();
    for (unsigned i = 0; i < count; ++i) PutFile(files[i]["name"].as<std::string>(), files[i]["bytes"]);
    web::SetKeeper(KeepFile);
}

// A shared game is played on the game's own tables, whatever the player has of his own.
std::string StartShared(const std::string& link) {
    Recording recording;
    const std::string error = ParseLink(link, recording);
    if (!error.empty()) return error;
    SetProgramFolder(web::kShippedFolder);
    StartReplay(recording);
    return {};
}

std::string SetUp() {
    TakePlayerFiles();
    SetProgramFolder(web::kPlayerFolder, web::kShippedFolder);
    const auto link = Page()["link"].as<std::string>(), seed = Page()["seed"].as<std::string>();
    if (Page()["author"].as<bool>()) EnableAuthorMenus();
    if (!seed.empty()) FixSeed(std::stoull(seed));
    if (!link.empty()) return StartShared(link);
    WatchGames();
    return {};
}

// What is told when the program has ended: nothing, or why it had to.
std::string Run() {
    try {
        const std::string error = SetUp();
        if (!error.empty()) return error;
        Main();
    } catch (const EndProgram&) {
        return Replay().state == ReplayState::differs ? Replay().message : "";
    } catch (const std::exception& error) {
        return error.what();
    }
    return {};
}

}  // namespace

int main() {
    const std::string reason = Run();
    Page().call<void>("programEnded", reason);
}

// For the page: a file of the player's that another tab has changed.
EMSCRIPTEN_BINDINGS(game) {
    emscripten::function("putPlayerFile", &PutFile);
}
