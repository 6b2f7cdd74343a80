#include "shell/status.h"

#include <cstdint>

#include "platform/waits.h"
#include "state/main_form.h"
#include "state/state.h"
#include "toolkit/text.h"

namespace {

constexpr At kStatusPlace = {5, 2};
constexpr Long kFpsInterval = 250;  // ms

// At least `digits` digits, zero-padded; a minus sign stands before them.
std::string Padded(std::int64_t value, std::size_t digits) {
    std::string text = std::to_string(value < 0 ? -value : value);
    if (text.size() < digits) text.insert(0, digits - text.size(), '0');
    return value < 0 ? "-" + text : text;
}

// Right across the wrap of the clock, and after days in which no game was played. 0: there is no figure yet.
bool FigureStands() {
    constexpr std::uint32_t kHour = 3600 * 1000;  // far more than FpsNext is ever ahead
    const auto ahead = static_cast<std::uint32_t>(game.FpsNext) - static_cast<std::uint32_t>(game.FpsNow);
    return game.FpsNext == 0 ? game.FpsNow == 0 : ahead <= kHour;
}

// The figure comes from the one frame before the update, not from an average.
void UpdateFps() {
    if (FigureStands() || game.FrameTime <= 0) {
        game.FpsNow = ClockNow();
        return;
    }
    const auto now = static_cast<std::uint32_t>(ClockNow());
    game.Fps = 1000 / game.FrameTime;
    game.FpsNext = static_cast<Long>(now + static_cast<std::uint32_t>(kFpsInterval));
}

}  // namespace

std::string StatusLine() {
    return "HISCORE " + Padded(game.HiScore, 6) + "  SCORE " + Padded(game.Score, 6) + "   POWER " +
           std::to_string(game.ShotMode) + "     FPS " + Padded(game.Fps, 5);
}

void DrawStatus() {
    UpdateFps();
    PrintText(MainForm.Crt, kStatusPlace.x, kStatusPlace.y, StatusLine());
}
