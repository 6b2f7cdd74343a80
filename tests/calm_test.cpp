// What a player with the calm picture sees of recorded games: how far brightness jumps, and how often it flashes.
#include <algorithm>
#include <array>
#include <cmath>
#include <deque>

#include "host/desktop/calm.h"
#include "recording/recording.h"
#include "shell/game_loop.h"
#include "shell/window_design.h"
#include "test_game.h"

using desktop::PicturePixels;

namespace {

// The light of the picture and of its four quarters, 0..1.
using Light = std::array<double, 5>;

Light LightOf(const PicturePixels& picture) {
    static const auto linear = [] {
        std::array<double, 256> table{};
        for (std::size_t i = 0; i < table.size(); ++i) table[i] = std::pow(static_cast<double>(i) / 255, 2.2);
        return table;
    }();
    Light light{};
    int count = 0;
    for (int y = 1; y < picture.height; y += 5, ++count) {
        for (int x = y % 5; x < picture.width; x += 5) {
            const std::uint32_t pixel = picture.Row(y)[x];
            const auto quarter = static_cast<std::size_t>(1 + (y >= picture.height / 2) * 2 + (x >= picture.width / 2));
            light[quarter] += 0.2126 * linear[pixel >> 16 & 0xFF] + 0.7152 * linear[pixel >> 8 & 0xFF] +
                              0.0722 * linear[pixel & 0xFF];
        }
    }
    const double samples = count * picture.width / 5.0;
    light[0] = (light[1] + light[2] + light[3] + light[4]) / samples;
    for (std::size_t i = 1; i < light.size(); ++i) light[i] /= samples / 4;
    return light;
}

// Flashes of one area: a change by a tenth and back.
class FlashCount {
  public:
    void See(double light, std::uint32_t now) {
        high_ = std::max(high_, light), low_ = std::min(low_, light);
        const bool rose = light - low_ >= kTenth, fell = high_ - light >= kTenth;
        if (!rose && !fell) return;
        high_ = low_ = light;
        if (rose != lastRose_) turns_.push_back(now);
        lastRose_ = rose;
        while (!turns_.empty() && now - turns_.front() > 1000) turns_.pop_front();
        most = std::max(most, static_cast<int>(turns_.size()) / 2);
    }
    int most = 0;  // in a second

  private:
    static constexpr double kTenth = 0.1;
    double high_ = 0, low_ = 1;
    bool lastRose_ = false;
    std::deque<std::uint32_t> turns_;
};

struct Viewer {
    void See(const PicturePixels& picture, std::uint32_t now) {
        const Light light = LightOf(picture);
        if (last[0] >= 0) jump = std::max(jump, std::abs(light[0] - last[0]));
        last = light;
        for (std::size_t i = 0; i < light.size(); ++i) flashes[i].See(light[i], now);
    }
    int MostFlashes() const { return std::ranges::max(flashes, {}, &FlashCount::most).most; }

    Light last{-1};
    double jump = 0;
    std::array<FlashCount, 5> flashes;
};

class CalmGameTest : public GameTest {
  protected:
    void Watch(const std::string& run) {
        Recording recording;
        ASSERT_EQ("", ReadRecording(std::string(TARNVEIL_TESTS) + "/runs/" + run + ".txt", recording));
        StartReplay(recording);
        host.onYield = [&] {
            const Surface& crt = MainForm.Crt;
            const PicturePixels picture{crt.image.data(), game.ScreenW, game.ScreenH, crt.imageWidth};
            calm.Follow(picture);
            plain.See(picture, host.now);
            softened.See(calm.Pixels(), host.now);
        };
        GameLoop();
        host.onYield = nullptr;
        StopReplay();
    }
    // Shown for so many milliseconds.
    void Show(const std::vector<std::uint32_t>& pixels, std::uint32_t ms) {
        const PicturePixels picture{pixels.data(), 320, 480, 320};
        calm.Follow(picture);
        plain.See(picture, host.now);
        softened.See(calm.Pixels(), host.now);
        host.now += ms;
    }
    desktop::CalmPicture calm;
    Viewer plain, softened;
};

TEST_F(CalmGameTest, RecordedGamesStayBelowATenthAndThreeFlashesASecond) {
    UseFolder(true);
    for (const char* run : {"attack"}) {
        game = GameState{}, MainForm = MainFormType{}, calm = {}, plain = softened = {};
        game.ScreenW = 320, game.ScreenH = 480;
        LoadMainForm();
        Watch(run);
        EXPECT_GT(plain.jump, 0.15) << run << ": no hit";
        EXPECT_LE(softened.jump, 0.1) << run;
        EXPECT_LE(softened.MostFlashes(), 3) << run;
    }
}

// The quickest row of hits there can be: the screen is red for two pictures and itself for one.
TEST_F(CalmGameTest, AHailOfHitsDoesNotFlash) {
    const std::vector<std::uint32_t> sky(320 * 480, 0x102030), red(320 * 480, kRed);
    for (int hit = 0; hit < 20; ++hit) {
        Show(red, 100);
        Show(red, 39);
        Show(sky, 39);
    }
    EXPECT_GT(plain.MostFlashes(), 3);
    EXPECT_LE(softened.MostFlashes(), 3);
    EXPECT_LE(softened.jump, 0.1);
}

}  // namespace
