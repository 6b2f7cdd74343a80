#include "platform/waits.h"

#include "host/clock.h"
#include "platform/unseen.h"
#include "state/main_form.h"

namespace {

constexpr Long kFrameBudget = 38;  // ms

}  // namespace

Long ClockNow() {
    return static_cast<Long>(timeGetTime());
}

Long ElapsedMs(Long start) {
    return static_cast<Long>(timeGetTime() - static_cast<std::uint32_t>(start));
}

void WaitMs(Long ms) {
    if (unseen) return;
    const Long start = ClockNow();
    if (ms >= 0) RestUntil(static_cast<std::uint32_t>(start) + static_cast<std::uint32_t>(ms) + 1);
    while (ElapsedMs(start) <= ms) {
    }
}

void PaceFrame() {
    game.FrameEnd = ClockNow();
    game.FrameWork =
        static_cast<Long>(static_cast<std::uint32_t>(game.FrameEnd) - static_cast<std::uint32_t>(game.FrameStart));
    const auto budget = static_cast<Long>(kFrameBudget / pace);
    const bool early = static_cast<std::uint32_t>(game.FrameWork) <
                       static_cast<std::uint32_t>(budget);  // a menu may stand open for weeks
    if (MainForm.Menu002.Checked && early) WaitMs(budget - game.FrameWork);
    game.FrameTime = ElapsedMs(game.FrameStart);
}
