// What showing a frame costs, against one memcpy of the bytes that are shown: show_benchmark [TIMES...]. Every round
// shows a picture that has changed, as in play; rounds and copies are measured in turns. Runs on whatever window system
// Qt is told (QT_QPA_PLATFORM), also offscreen.
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "host/desktop/desktop.h"
#include "host/desktop/waiting.h"
#include "host/window.h"
#include "shell/window_design.h"
#include "state/field_size.h"
#include "state/main_form.h"
#include "state/state.h"

namespace {

struct Times {
    double wall;  // microseconds
    double cpu;   // of this thread
};

Times Now() {
    timespec cpu{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &cpu);
    const auto wall = std::chrono::steady_clock::now().time_since_epoch();
    return {std::chrono::duration<double, std::micro>(wall).count(),
            static_cast<double>(cpu.tv_sec) * 1e6 + static_cast<double>(cpu.tv_nsec) / 1e3};
}

Times Measure(auto&& work) {
    const Times start = Now();
    work();
    const Times end = Now();
    return {end.wall - start.wall, end.cpu - start.cpu};
}

double Median(std::vector<Times>& all, double Times::*which) {
    std::ranges::sort(all, {}, which);
    return all[all.size() / 2].*which;
}

void ChangeThePicture(int round) {
    for (std::size_t i = 0; i < MainForm.Crt.image.size(); i += 7) MainForm.Crt.image[i] = static_cast<Color>(round);
}

void Report(int times, bool paced) {
    constexpr int kRounds = 200;
    desktop::PictureView& view = desktop::TheHost().window->View();
    view.SetTimes(times);
    for (int i = 0; i < 20; ++i) desktop::WaitForWindowEvents(5);
    const QSize size = QSize(kFieldWidth, kFieldHeight) * times;
    const auto pixels = static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height());
    std::vector<std::uint32_t> from(pixels, 1), to(pixels, 2);
    std::vector<Times> shows, copies;
    for (int round = 0; round < kRounds; ++round) {
        ChangeThePicture(round);
        copies.push_back(Measure([&] {
            std::memcpy(to.data(), from.data(), pixels * sizeof(std::uint32_t));
            from[0] = to[static_cast<std::size_t>(round)];
        }));
        shows.push_back(Measure([&] { view.Show(); }));
        if (paced) desktop::WaitForWindowEvents(20);
    }
    const double copy = Median(copies, &Times::wall);
    const double wall = Median(shows, &Times::wall), cpu = Median(shows, &Times::cpu);
    std::printf("%dx %-8s memcpy %7.1f us   show %7.1f us (%.2f)   of our processor time %7.1f us (%.2f)\n", times,
                paced ? "paced" : "in a row", copy, wall, wall / copy, cpu, cpu / copy);
}

}  // namespace

int main(int argc, char** argv) {
    desktop::Host host(argc, argv);
    game.ScreenW = kFieldWidth, game.ScreenH = kFieldHeight;
    LoadMainForm();
    ShowMainForm();
    std::printf("%s\n", qPrintable(QGuiApplication::platformName()));
    for (int times = 1; times <= 4; ++times) {
        Report(times, false);
        Report(times, true);
    }
    host.window.reset();
    return 0;
}
