#include "host/desktop/frame_hold.h"

#include <algorithm>
#include <utility>

#include "host/desktop/clock_stop.h"
#include "host/desktop/desktop.h"
#include "host/desktop/pause.h"
#include "host/desktop/waiting.h"
#include "toolkit/input_state.h"

namespace desktop {

void FrameHold::Step() {
    standing_ = step_ = true;
}

bool FrameHold::Leaves(const InputEvent& event) {
    return event.kind == InputEvent::Kind::keyDown && event.code == VK_ESCAPE;
}

bool FrameHold::Wanted() const {
    const bool asked = std::ranges::any_of(events_, [](const InputEvent& event) {
        return Leaves(event) || event.kind == InputEvent::Kind::menu || event.kind == InputEvent::Kind::closeWindow;
    });
    return standing_ && !step_ && !asked && Pause::InGame();
}

void FrameHold::Hold() {
    if (Wanted()) {
        const ClockStop clockStop;
        while (Wanted()) {
            TheHost().window->View().LetGoOfLostKeys();
            StandStill();
        }
        if (std::ranges::any_of(events_, Leaves)) standing_ = false;
    }
    step_ = false;
}

}  // namespace desktop
