// How well enemy shots stand out, also for people who see colours differently: plays recorded games and prints for
// every kind of shot the luminance contrast to the background it flew over, as seen with normal sight and without the
// red, the green or the blue cones (G. M. Machado, M. M. Oliveira, L. A. F. Fernandes: A physiologically-based model
// for simulation of color vision deficiency, 2009). Exit status 1 when some kind falls below 3 : 1.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "command_line/command_line.h"
#include "host/headless/headless.h"
#include "recording/recording.h"
#include "shell/game_loop.h"
#include "shell/window_design.h"
#include "state/field_size.h"
#include "state/main_form.h"
#include "state/state.h"
#include "toolkit/folder.h"
#include "toolkit/input_state.h"

namespace {

using Rgb = std::array<double, 3>;  // linear light

struct Sight {
    const char* name;
    std::array<Rgb, 3> matrix;
};
constexpr Sight kSights[] = {
    {"normal", {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}},
    {"protan", {{{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}}},
    {"deutan", {{{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}}},
    {"tritan", {{{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}}},
};
constexpr double kWanted = 3.0;

double Linear(std::uint32_t level) {
    const double value = (level & 0xFF) / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double Luminance(Color color, const Sight& sight) {
    const Rgb light{Linear(color >> 16), Linear(color >> 8), Linear(color)};
    constexpr Rgb kWeights{0.2126, 0.7152, 0.0722};
    double sum = 0;
    for (std::size_t row = 0; row < 3; ++row) {
        double channel = 0;
        for (std::size_t i = 0; i < 3; ++i) channel += sight.matrix[row][i] * light[i];
        sum += kWeights[row] * std::clamp(channel, 0.0, 1.0);
    }
    return sum;
}

// Where a shot was drawn: what the frame has there, and what the background alone has.
struct Patch {
    std::vector<Color> shot;
    std::vector<Color> background;
};

struct Size {
    int width, height;
};
Size SizeOf(int kind) {
    constexpr Size kPellet{8, 8}, kDrop{8, 16}, kBouncer{32, 32}, kBolt{16, 32}, kOther{16, 16};
    switch (kind) {
        case 1:
            return kPellet;
        case 2:
            return kDrop;
        case 4:
            return kBouncer;
        case 8:
        case 10:
            return kBolt;
        default:
            return kOther;
    }
}

// A shot has moved since it was drawn.
Patch PatchOf(const EneShotType& shot, int scrollY) {
    const Size size = SizeOf(shot.Kind);
    Patch patch;
    for (int y = 0; y < size.height; ++y) {
        for (int x = 0; x < size.width; ++x) {
            const int px = FloorToPixel(shot.X - shot.VX) + x, py = FloorToPixel(shot.Y - shot.VY) + y;
            if (px < 0 || px >= game.ScreenW || py < 0 || py >= game.ScreenH) continue;
            const int from = (py - scrollY + game.ScreenH) % game.ScreenH;
            const Color behind = MainForm.B_Crt.Row(from)[px], seen = MainForm.Crt.Row(py)[px];
            patch.background.push_back(behind);
            if (seen != behind) patch.shot.push_back(seen);
        }
    }
    return patch;
}

// Of the brighter half of the shot, which is what one sees, to the background around it.
double Contrast(const Patch& patch, const Sight& sight) {
    std::vector<double> shot;
    for (const Color color : patch.shot) shot.push_back(Luminance(color, sight));
    std::ranges::sort(shot, std::greater());
    shot.resize((shot.size() + 1) / 2);
    double bright = 0, behind = 0;
    for (const double each : shot) bright += each / static_cast<double>(shot.size());
    for (const Color color : patch.background) {
        behind += Luminance(color, sight) / static_cast<double>(patch.background.size());
    }
    return (std::max(bright, behind) + 0.05) / (std::min(bright, behind) + 0.05);
}

// While a hit is shown there is no background.
bool IsRed() {
    return MainForm.Crt.Row(game.ScreenH - 1)[0] == kRed &&
           MainForm.Crt.Row(game.ScreenH / 2)[game.ScreenW - 1] == kRed;
}

std::map<int, std::array<std::vector<double>, 4>> contrasts;  // by kind of shot and sight

// Every few frames: before the frame's yield all is drawn. The background has moved on since.
void LookAtShots() {
    static int frame = 0;
    constexpr int kEvery = 7;
    if (++frame % kEvery != 0 || !MainForm.B_Crt.HasPicture || IsRed()) return;
    const int scrollY = (game.ScrollY - game.ScrollSpeed + game.ScreenH) % game.ScreenH;
    for (int j = 0; j <= game.EneShotMax; ++j) {
        const EneShotType& shot = game.EneShot[j];
        if (shot.Used == 0) continue;
        const Patch patch = PatchOf(shot, scrollY);
        if (patch.shot.size() < 8) continue;  // off the screen, or not drawn yet
        for (std::size_t i = 0; i < std::size(kSights); ++i) {
            contrasts[shot.Kind][i].push_back(Contrast(patch, kSights[i]));
        }
    }
}

void Replay(const std::string& path) {
    Recording recording;
    if (const std::string error = ReadRecording(path, recording); !error.empty()) {
        std::fprintf(stderr, "contrast: %s\n", error.c_str());
        std::exit(command_line::kFailed);
    }
    headless::Reset();
    game = GameState{}, MainForm = MainFormType{};
    game.ScreenW = kFieldWidth, game.ScreenH = kFieldHeight;
    LoadMainForm();
    StartReplay(recording);
    headless::TheHost().onYield = LookAtShots;
    GameLoop();
    StopReplay();
}

// What nineteen of twenty shots reach.
double Usual(std::vector<double>& all) {
    const auto place = all.begin() + static_cast<std::ptrdiff_t>(all.size() / 20);
    std::nth_element(all.begin(), place, all.end());
    return *place;
}

bool Report() {
    bool good = true;
    std::printf("kind   looks");
    for (const Sight& sight : kSights) std::printf("  %7s", sight.name);
    for (auto& [kind, bySight] : contrasts) {
        std::printf("\n%4d %7zu", kind, bySight[0].size());
        for (auto& all : bySight) {
            const double usual = Usual(all);
            std::printf("  %6.2f%s", usual, usual < kWanted ? "!" : " ");
            good = good && usual >= kWanted;
        }
    }
    std::puts("");
    return good;
}

}  // namespace

int main(int argc, char** argv) {
    std::string folder = ".";
    std::vector<std::string> files;
    command_line::App app("contrast", 1, "Measures how well enemy shots stand out from the background.");
    command_line::AddFolder(app, "--folder", folder, "use the tables in DIR");
    app.add_option("FILE", files, "recorded games")->required();
    if (const auto ended = app.Read(argc, argv)) return *ended;
    SetProgramFolder(folder);
    for (const std::string& file : files) Replay(file);
    return Report() ? command_line::kDone : command_line::kFailed;
}
