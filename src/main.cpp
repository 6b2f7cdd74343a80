// The desktop program: options, the program's folder, then the game.
#include <QtCore/QStandardPaths>
#include <cstdio>
#include <exception>
#include <filesystem>

#include "host/desktop/audio_setup.h"
#include "host/desktop/desktop.h"
#include "host/desktop/options.h"
#include "host/desktop/program_folder.h"
#include "host/desktop/recorded_play.h"
#include "host/window.h"
#include "platform/folder.h"
#include "shell/main_form.h"
#include "shell/main_routine.h"
#include "shell/random.h"

namespace {

constexpr int kFailed = 1;
constexpr int kWrongUse = 2;

int RefuseUse(const std::string& reason) {
    std::fprintf(stderr, "tarnveil: %s\nTry 'tarnveil --help'.\n", reason.c_str());
    return kWrongUse;
}

std::string FolderFor(const desktop::Options& options) {
    if (!options.folder.empty()) return options.folder;
    const auto executable = std::filesystem::path(QCoreApplication::applicationDirPath().toStdString());
    const QString user = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    return desktop::ChooseFolder(executable, user.toStdString()).string();
}

void ApplyOptions(const desktop::Options& options) {
    SetProgramFolder(FolderFor(options));
    if (options.author) EnableAuthorMenus();
    if (options.seed) FixSeed(*options.seed);
    SetSoundFont(options.soundFont);
}

// The sound device is open exactly while the game runs.
struct Sound {
    Sound() { StartAudio(); }
    ~Sound() { StopAudio(); }
    Sound(const Sound&) = delete;
    Sound& operator=(const Sound&) = delete;
};

int Fail(const std::string& reason) {
    std::fprintf(stderr, "tarnveil: %s\n", reason.c_str());
    MsgBox(reason, "Tarnveil");
    return kFailed;
}

int Play(const desktop::Options& options) {
    try {
        ApplyOptions(options);
        const std::string error = desktop::StartRecordedPlay(options);
        if (!error.empty()) return Fail(error);
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
    const desktop::Options options = desktop::ParseOptions({argv + 1, argv + argc});
    if (!options.error.empty()) return RefuseUse(options.error);
    if (options.help) return std::fputs(desktop::HelpText().c_str(), stdout) < 0 ? kFailed : 0;
    if (options.version) return std::puts("tarnveil " TARNVEIL_VERSION) < 0 ? kFailed : 0;
    std::error_code error;
    if (!options.folder.empty() && !std::filesystem::is_directory(options.folder, error)) {
        return RefuseUse("--folder: " + options.folder + " is not a folder");
    }
    desktop::Host host(argc, argv);
    return Play(options);
}
