// Plays the game on screen by a pilot, hour after hour if need be, and prints a line a minute: how many frames lasted
// 39 ms +- 1, the longest, how far the frames have come off the clock, what share of a processor went into it, and the
// memory. Frames in which a stage changes are pauses by rule and left out. Exit status 1 when under 98 % were on time.
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <string>

#include "command_line/command_line.h"
#include "host/desktop/audio_setup.h"
#include "host/desktop/desktop.h"
#include "host/window.h"
#include "pilot.h"
#include "platform/events.h"
#include "shell/game_loop.h"
#include "shell/main_routine.h"
#include "state/main_form.h"
#include "state/random.h"
#include "toolkit/folder.h"
#include "toolkit/input_state.h"

namespace {

using Clock = std::chrono::steady_clock;

struct Minute {
    int frames = 0;
    int onTime = 0;
    double longest = 0;  // ms
    double sum = 0;
};

struct Run {
    std::unique_ptr<Pilot> pilot = MakePilot("dodge", Weapon::switching, 1);
    PilotHands hands;
    bool frameDone = false;
    int stage = -1;
    Clock::time_point lastFrame{};
    Minute minute, all;
    Clock::time_point minuteStart = Clock::now();
    double minuteCpu = 0;
    int minutes = 0;
    int wanted = 10;
};
Run run;

double CpuSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double ResidentMegabytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmRSS:")) return std::stod(line.substr(6)) / 1024;
    }
    return 0;
}

void PrintMinute() {
    const double cpu = CpuSeconds();
    const double drift = run.all.sum - run.all.frames * 39.0;
    std::printf(
        "%4d min %6d frames  on time %6.2f %%  longest %6.1f ms  mean %7.4f ms  off the clock %+7.1f ms  "
        "processor %5.2f %%  memory %6.1f MB\n",
        run.minutes, run.minute.frames, 100.0 * run.minute.onTime / std::max(1, run.minute.frames), run.minute.longest,
        run.minute.sum / std::max(1, run.minute.frames), drift,
        100 * (cpu - run.minuteCpu) / std::chrono::duration<double>(Clock::now() - run.minuteStart).count(),
        ResidentMegabytes());
    std::fflush(stdout);
    run.minuteCpu = cpu;
    run.minute = {};
    run.minuteStart = Clock::now();
}

void Count(double ms) {
    for (Minute* each : {&run.minute, &run.all}) {
        ++each->frames;
        each->onTime += std::abs(ms - 39) <= 1;
        each->longest = std::max(each->longest, ms);
        each->sum += ms;
    }
}

void FrameDone() {
    const auto now = Clock::now();
    const bool sameStage = run.stage == game.StageNo && game.MessageCount > 2;
    if (sameStage) Count(std::chrono::duration<double, std::milli>(now - run.lastFrame).count());
    run.lastFrame = now;
    run.stage = game.StageNo;
    run.frameDone = true;
}

void TapSpace(std::vector<InputEvent>& events) {
    events.push_back({InputEvent::Kind::keyDown, VK_SPACE});
    events.push_back({InputEvent::Kind::keyUp, VK_SPACE});
}

void Play(std::vector<InputEvent>& events) {
    if (MainForm.MENU100.Enabled || game.GameOver != 0 || game.AllClear != False) TapSpace(events);
    if (std::exchange(run.frameDone, false)) run.hands.Press(run.pilot->Decide(game), events);
    if (Clock::now() - run.minuteStart < std::chrono::minutes(1)) return;
    ++run.minutes;
    PrintMinute();
    if (run.minutes == run.wanted) events.push_back({InputEvent::Kind::closeWindow});
}

}  // namespace

int main(int argc, char** argv) {
    std::string folder = ".";
    int times = 0;
    command_line::App app("pace", 1, "Plays the game by a pilot and prints how steady the frames are.");
    command_line::AddFolder(app, "--folder", folder, "use the tables, sounds and music in DIR");
    command_line::AddNumber(app, "--minutes", run.wanted, 1, 10'000, "play for N minutes");
    command_line::AddNumber(app, "--scale", times, 0, 64, "show each pixel as N x N, 0: as the screen allows");
    if (const auto ended = app.Read(argc, argv)) return *ended;
    desktop::Host host(argc, argv);
    host.showing = {};
    host.showing.times = times;
    host.showing.kept = host.pauseWhenLeft = false;
    SetProgramFolder(folder);
    MainForm.Menu003.Checked = true;  // hits are pauses too
    gameWatcher.FrameDone = FrameDone;
    SetEventTap(Play);
    StartAudio();
    try {
        Main();
    } catch (const EndProgram&) {
        std::puts("");
    }
    StopAudio();
    const double onTime = 100.0 * run.all.onTime / std::max(1, run.all.frames);
    std::printf("%d frames, %.3f %% on time\n", run.all.frames, onTime);
    return onTime >= 98 ? command_line::kDone : command_line::kFailed;
}
