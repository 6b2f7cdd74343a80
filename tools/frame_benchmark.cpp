// frame_benchmark: what composing the heaviest frame costs, against one copy of the screen, against copying just the
// rectangles that it touches, and against QPainter. All are measured in turns, and of each the shortest time counts.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <limits>
#include <nlohmann/json.hpp>
#include <vector>

#include "combat/enemy_move.h"
#include "combat/enemy_shots.h"
#include "combat/explosions.h"
#include "combat/my_shots.h"
#include "combat/ship_hits.h"
#include "command_line/command_line.h"
#include "fresh_program.h"
#include "host/headless/headless.h"
#include "painter.h"
#include "platform/screen.h"
#include "shell/status.h"
#include "stage/stars.h"
#include "state/bitmaps.h"
#include "state/main_form.h"
#include "toolkit/resources.h"
#include "touched.h"

namespace {

// Every slot in use: 26 large enemies, 5 large explosions, 41 trail shots, 36 player shots, banner, gauge, stars.
void FillTheScreen() {
    game.EnemyMax = 30, game.EneShotMax = 40, game.StarMax = 20;
    game.StageNo = 1, game.MyPower = 10, game.MyX = 130, game.MyY = 300, game.ScrollY = 100;
    for (EnemyDataType& kind : game.EnemyData) kind = {0, 384, 64, 64, 2, 0, 0};
    for (int i = 0; i <= 30; ++i) {
        game.Enemy[i] = {};
        game.Enemy[i].X = static_cast<Single>(i % 6 * 50), game.Enemy[i].Y = static_cast<Single>(i / 6 * 80);
        game.Enemy[i].State = i < 26 ? 1 : 2;
    }
    for (int j = 0; j <= 40; ++j) {
        EneShotType& shot = game.EneShot[j] = {};
        shot.Kind = 7, shot.Used = 1;
        shot.X = static_cast<Single>(j * 7), shot.Y = static_cast<Single>(j * 5);
        std::fill(std::begin(shot.TX), std::end(shot.TX), shot.X),
            std::fill(std::begin(shot.TY), std::end(shot.TY), shot.Y);
    }
    for (int i = 0; i < 36; ++i) game.MyShot[i] = {static_cast<Single>(i * 8), 440, 0, 0, 1};
    game.MessageCount = 50;
}

void ComposeFrame() {
    ScrollBackground();
    MoveMyShot();
    DrawMyShip();
    MoveEnemy();
    MoveEneShot();
    DrawBom();
    DrawPowerGauge();
    DrawMessages();
    MoveStars();
    DrawStatus();
}

void SetUp() {
    FreshProgram();
    SetPicture(MainForm.B_Crt, LoadResPicture(kBackgroundBitmap));
    SetPicture(MainForm.EnemyPic, LoadResPicture(kEnemyBitmap));
    SetPicture(MainForm.MessagePic, LoadResPicture(kMessageBitmap));
    SetPicture(MainForm.BomPic128, LoadResPicture(kBomBitmap));
    MainForm.Menu003.Checked = true;  // no hit stops the frame
    for (int i = 0; i < kShipFrames; ++i) game.MyShipChr[i][1] = static_cast<Integer>(64 * i);
}

// The floor: the same rectangles from the same sheets, copied row by row and not combined.
void CopyTouched(const std::vector<Touched>& drawn, std::vector<Color>& screen, int screenWidth) {
    for (const Touched& t : drawn) {
        Color* to = screen.data() + static_cast<std::ptrdiff_t>(t.y) * screenWidth + t.x;
        for (int row = 0; row < t.height; ++row, to += screenWidth) {
            const Color* from = t.from ? t.from->Row(t.image.y + row) + t.image.x : &t.color;
            std::memcpy(to, from, static_cast<std::size_t>(t.width) * sizeof(Color));
        }
    }
}

// The compiler may not leave out what nobody reads.
void Keep(const std::vector<Color>& pixels) {
    asm volatile("" : : "r"(pixels.data()) : "memory");
}

void Shorten(double& least, auto&& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - start;
    least = std::min(least, taken.count());
}

constexpr double kNever = std::numeric_limits<double>::infinity();

// Microseconds.
struct Costs {
    double frame = kNever;
    double memcpy = kNever;
    double floor = kNever;
    double painter = kNever;  // not measured: stays
};

std::vector<Touched> WatchFrame() {
    SetUp();
    FillTheScreen();
    return WhatIsDrawn(ComposeFrame);
}

Costs Measure(const std::vector<Touched>& drawn, const std::optional<Painter>& painter, int rounds) {
    Costs costs;
    const std::vector<Color>& screen = MainForm.Crt.image;
    std::vector<Color> copy(screen.size()), touched(screen.size());
    for (int round = 0; round < rounds; ++round) {
        FillTheScreen();
        Shorten(costs.frame, ComposeFrame);
        Shorten(costs.memcpy, [&] {
            std::memcpy(copy.data(), screen.data(), screen.size() * sizeof(Color));
            Keep(copy);
        });
        Shorten(costs.floor, [&] {
            CopyTouched(drawn, touched, MainForm.Crt.imageWidth);
            Keep(touched);
        });
        if (painter) Shorten(costs.painter, painter->paint);
    }
    return costs;
}

void PrintTable(const Costs& c) {
    std::printf("%-44s %8s %8s\n", "", "us", "x ours");
    const auto row = [&](const char* name, double cost) {
        std::printf("%-44s %8.1f %8.2f\n", name, cost, cost / c.frame);
    };
    row("the heaviest frame", c.frame);
    row("one memcpy of the screen", c.memcpy);
    row("row by row, the rectangles it touches", c.floor);
    if (c.painter < kNever) row("QPainter, the same pixels", c.painter);
    std::printf("ours is %.2f x the memcpy and %.2f x the rectangles\n", c.frame / c.memcpy, c.frame / c.floor);
}

void PrintJson(const Costs& c, std::size_t transfers, int rounds) {
    nlohmann::ordered_json values = {{"rounds", rounds},
                                     {"transfers", transfers},
                                     {"frameMicroseconds", c.frame},
                                     {"memcpyMicroseconds", c.memcpy},
                                     {"floorMicroseconds", c.floor},
                                     {"frameToMemcpy", c.frame / c.memcpy},
                                     {"frameToFloor", c.frame / c.floor}};
    if (c.painter < kNever) {
        values["painterMicroseconds"] = c.painter;
        values["painterToFrame"] = c.painter / c.frame;
    }
    std::puts(values.dump(1).c_str());
}

}  // namespace

int main(int argc, char** argv) {
    int rounds = 2000;
    bool json = false;
    command_line::App app("frame_benchmark", 1, "Measures what Tarnveil's heaviest frame costs.");
    command_line::AddNumber(app, "--rounds", rounds, 1, 1'000'000, "measure N times and take the shortest");
    command_line::AddFlag(app, "--json", json, "print JSON instead of a table");
    if (const auto ended = app.Read(argc, argv)) return *ended;
    const std::vector<Touched> drawn = WatchFrame();
    const auto painter = MakePainter(drawn, MainForm.Crt.imageWidth, MainForm.Crt.imageHeight);
    if (painter) painter->paint();
    if (painter && painter->pixels() != MainForm.Crt.image) {
        std::fputs("frame_benchmark: QPainter's pixels are others than ours\n", stderr);
        return command_line::kFailed;
    }
    const Costs costs = Measure(drawn, painter, rounds);
    if (json) {
        PrintJson(costs, drawn.size(), rounds);
    } else {
        PrintTable(costs);
    }
    return command_line::kDone;
}
