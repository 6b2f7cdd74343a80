// The desktop program: options, the program's folder, then the game.
#include <QtCore/QStandardPaths>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <memory>

#include "bench_window/bench_window.h"
#include "host/desktop/audio_setup.h"
#include "host/desktop/desktop.h"
#include "host/desktop/program_folder.h"
#include "host/window.h"
#include "options.h"
#include "recorded_play.h"
#include "runs_window/run_desk.h"
#include "shell/main_routine.h"
#include "stage/data_files.h"
#include "state/main_form.h"
#include "state/random.h"
#include "toolkit/folder.h"

namespace {

constexpr int kFailed = 1;

desktop::Folders FoldersFor(const desktop::Options& options) {
    if (!options.folder.empty()) return {options.folder, {}};
    const auto executable = std::filesystem::path(QCoreApplication::applicationDirPath().toStdString());
    const QString user = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    std::vector<std::string> tables;
    for (const std::string_view file : TableFiles()) tables.push_back(BareName(file));
    return desktop::ChooseFolders(executable, user.toStdString(), tables);
}

void ApplyOptions(const desktop::Options& options) {
    const desktop::Folders folders = FoldersFor(options);
    SetProgramFolder(folders.own.string(), folders.shipped.string());
    if (options.author) EnableAuthorMenus();
    if (options.seed) FixSeed(*options.seed);
    SetSoundFont(options.soundFont);
}

// What the line says goes before what was kept from last time. Nobody has to sit at the keys while a replay runs.
void ApplyToWindow(const desktop::Options& options, desktop::Host& host) {
    desktop::Showing& showing = host.showing;
    if (options.scale) showing.times = *options.scale, showing.fullScreen = false;
    showing.fullScreen |= options.fullScreen;
    showing.fit |= options.fit;
    showing.calm |= options.calm;
    showing.kept = host.pauseWhenLeft = options.replay.empty();
}

// The sound device is open exactly while the game runs.
struct Sound {
    Sound() { StartAudio(); }
    ~Sound() { StopAudio(); }
    Sound(const Sound&) = delete;
    Sound& operator=(const Sound&) = delete;
};

// The line has been looked at: it is a place.
TryOut FromPlace(const std::string& text) {
    TryOut place;
    static_cast<void>(ReadPlace(text, place));
    return place;
}

int Fail(const std::string& reason) {
    std::fprintf(stderr, "tarnveil: %s\n", reason.c_str());
    MsgBox(reason, "Tarnveil");
    return kFailed;
}

// For authors only; a replay has nothing to edit.
std::unique_ptr<bench_window::BenchWindow> OpenBench(const desktop::Options& options) {
    if (!options.author || !options.replay.empty()) return nullptr;
    auto bench = std::make_unique<bench_window::BenchWindow>(desktop::TheHost());
    if (!options.from.empty()) StartTryOut(FromPlace(options.from));
    return bench;
}

// The list of runs and what is done with them; a replay has none.
std::unique_ptr<runs_window::RunDesk> OpenRuns(const desktop::Options& options) {
    if (!options.replay.empty()) return nullptr;
    auto runs = std::make_unique<runs_window::RunDesk>(desktop::TheHost());
    if (!options.run.empty()) runs->Ask(runs_window::Deed::play, options.run);
    return runs;
}

int RunProgram(const desktop::Options& options) {
    try {
        ApplyOptions(options);
        const std::string error = desktop::StartRecordedPlay(options);
        if (!error.empty()) return Fail(error);
        const auto runs = OpenRuns(options);
        const auto bench = OpenBench(options);
        const Sound sound;
        Main();
        return 0;
    } catch (const EndProgram& end) {
        return desktop::FinishRecordedPlay(end.status);
    } catch (const std::exception& error) {
        return Fail(error.what());
    }
}

}  // namespace

int main(int argc, char** argv) {
    desktop::Options options;
    if (const auto ended = desktop::ReadOptions(argc, argv, options)) return *ended;
    desktop::Host host(argc, argv);
    ApplyToWindow(options, host);
    return RunProgram(options);
}
