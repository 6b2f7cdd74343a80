#include "recorded_play.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>
#include <algorithm>
#include <cstdio>

#include "host/window.h"
#include "recording/keeper.h"
#include "recording/recording.h"
#include "shell/game_loop.h"
#include "state/main_form.h"

namespace desktop {

namespace {

constexpr int kFailed = 1;

// The pictures that --screenshots takes: at these parts of the recording.
constexpr double kShotPlaces[] = {0.12, 0.45, 0.8};

struct Screenshots {
    QString folder;
    std::vector<int> frames;        // still to come, last first
    void (*frameDone)() = nullptr;  // the watcher they stand before
    int taken = 0;
};
Screenshots screenshots;

QWidget* MainWindow() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && widget->isWindow()) return widget;
    }
    return nullptr;
}

void TakeScreenshot() {
    ShowNow(MainForm.Crt);
    QWidget* window = MainWindow();
    const QString path = screenshots.folder + QString("/tarnveil-%1.png").arg(++screenshots.taken);
    if (!window || !window->grab().save(path)) {
        std::fprintf(stderr, "tarnveil: %s cannot be written\n", path.toUtf8().constData());
    }
}

void FrameDone() {
    screenshots.frameDone();
    if (screenshots.frames.empty() || Replay().frame < screenshots.frames.back()) return;
    screenshots.frames.pop_back();
    TakeScreenshot();
}

void PlanScreenshots(const std::string& folder, int frames) {
    screenshots.folder = QString::fromStdString(folder);
    for (const double place : kShotPlaces)
        screenshots.frames.insert(screenshots.frames.begin(), static_cast<int>(frames * place));
    screenshots.frameDone = gameWatcher.FrameDone;
    gameWatcher.FrameDone = FrameDone;
}

std::string StartReplaying(const Options& options) {
    Recording recording;
    std::string error = ReadRecording(options.replay, recording);
    if (!error.empty()) return error;
    if (!options.anyData && DataDigest() != recording.dataDigest) {
        return options.replay +
               ": the data tables are not those it was recorded with (--any-data plays it all the same)";
    }
    if (options.fast) recording.options[&MainFormType::Menu002] = false;
    StartReplay(recording);
    if (!options.screenshots.empty()) PlanScreenshots(options.screenshots, recording.endFrames);
    return {};
}

int ReportReplay(int status) {
    const ReplayResult& result = Replay();
    switch (result.state) {
        case ReplayState::none:
            return status;
        case ReplayState::finished:
            std::printf("The replay agrees in all %d frames.\n", result.frame);
            return status;
        case ReplayState::differs:
            std::printf("The replay differs at frame %d: %s\n", result.frame, result.message.c_str());
            return kFailed;
        case ReplayState::waiting:
        case ReplayState::playing:
            std::printf("The replay was left after %d frames.\n", result.frame);
            return status;
    }
    return status;
}

}  // namespace

std::string StartRecordedPlay(const Options& options) {
    RescueRuns();
    if (!options.replay.empty()) return StartReplaying(options);
    if (!options.record.empty()) StartRecorder(options.record);
    StartKeepingRuns();
    return {};
}

int FinishRecordedPlay(int status) {
    const std::string message = FinishRecorder();
    if (message.empty()) return ReportReplay(status);
    std::fprintf(stderr, "tarnveil: %s\n", message.c_str());
    return kFailed;
}

}  // namespace desktop
