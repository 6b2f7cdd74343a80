// hostile_games: plays random hostile games until enough frames are played. Prints where games ended; fails when a
// frame takes far longer than a frame may.
#include <cstdio>
#include <string>

#include "command_line/command_line.h"
#include "hostile.h"
#include "hostile_folder.h"

int main(int argc, char** argv) {
    long wanted = 20000;
    command_line::App app("hostile_games", 1, "Plays Tarnveil on hostile data.");
    command_line::AddNumber(app, "--frames", wanted, 1, 1'000'000'000, "play at least N frames");
    if (const auto ended = app.Read(argc, argv)) return *ended;
    constexpr int kFramesPerGame = 600;
    constexpr double kLongestFrame = 1.0;  // seconds, sanitizers included
    const std::string folder = hostile::MakeFolder();
    long frames = 0;
    int games = 0, refused = 0;
    double slowest = 0;
    while (frames < wanted) {
        const std::string name = "game " + std::to_string(games);
        const HostileReport report =
            PlayHostileGame({reinterpret_cast<const std::uint8_t*>(name.data()), name.size()}, folder, kFramesPerGame);
        frames += report.frames;
        ++games;
        if (!report.ended) ++refused;
        if (report.slowestFrame > slowest) slowest = report.slowestFrame;
        if (report.slowestFrame > kLongestFrame) {
            std::printf("%s: a frame took %.2f s\n", name.c_str(), report.slowestFrame);
            return 1;
        }
    }
    hostile::RemoveFolder(folder);
    std::printf("%d games, %ld frames, %d refused for their files, slowest frame %.1f ms\n", games, frames, refused,
                slowest * 1000);
    return 0;
}
