// The cost of composing the heaviest frame, against copying as many bytes. Prints the ratio of the two, measured in
// turns in the same run.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <vector>

#include "combat/enemy_move.h"
#include "combat/enemy_shots.h"
#include "combat/explosions.h"
#include "combat/my_shots.h"
#include "combat/ship_hits.h"
#include "host/headless/headless.h"
#include "platform/resources.h"
#include "platform/screen.h"
#include "shell/main_form.h"
#include "shell/status.h"
#include "stage/stars.h"

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
    game = GameState{};
    MainForm = MainFormType{};
    game.ScreenW = 320, game.ScreenH = 480;
    LoadMainForm();
    SetPicture(MainForm.B_Crt, LoadResPicture(101));
    SetPicture(MainForm.EnemyPic, LoadResPicture(250));
    SetPicture(MainForm.MessagePic, LoadResPicture(300));
    SetPicture(MainForm.BomPic128, LoadResPicture(150));
    MainForm.Menu003.Checked = true;  // no hit stops the frame
    for (int i = 0; i < kShipFrames; ++i) game.MyShipChr[i][1] = static_cast<Integer>(64 * i);
}

double Seconds(auto&& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void HeaviestFrame(benchmark::State& state) {
    SetUp();
    std::vector<Color> copy(MainForm.Crt.image.size());
    std::vector<double> frames, copies;
    for (auto _ : state) {
        FillTheScreen();
        const double frame = Seconds(ComposeFrame);
        state.SetIterationTime(frame);
        frames.push_back(frame);
        copies.push_back(Seconds([&] {
            std::memcpy(copy.data(), MainForm.Crt.image.data(), copy.size() * sizeof(Color));
            benchmark::DoNotOptimize(copy.data());
            benchmark::ClobberMemory();
        }));
    }
    const auto median = [](std::vector<double>& values) {
        std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2), values.end());
        return values[values.size() / 2];
    };
    state.counters["memcpy_us"] = median(copies) * 1e6;
    state.counters["frame_us"] = median(frames) * 1e6;
    state.counters["ratio"] = median(frames) / median(copies);
}
BENCHMARK(HeaviestFrame)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
