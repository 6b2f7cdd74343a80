#include "host/desktop/frame_hold.h"

#include <algorithm>
#include <utility>

#include "host/desktop/clock_stop.h"
#include "host/desktop/pause.h"
#include "host/desktop/waiting.h"
#include "toolkit/input_state.h"

namespace desktop {

void FrameHold::Step() {
    standing_ = step_ = true;
}

bool FrameHold::IsAsked(const InputEvent& event) {
    const bool leaves = event.kind == InputEvent::Kind::keyDown && event.code == VK_ESCAPE;
    return leaves || event.kind == InputEvent::Kind::menu || event.kind == InputEvent::Kind::closeWindow;
}

bool FrameHold::Wanted() const {
    return standing_ && !step_ && !std::ranges::any_of(events_, IsAsked) && Pause::InGame();
}

void FrameHold::Hold() {
    if (Wanted()) {
        const ClockStop clockStop;
        while (Wanted()) StandStill();
        if (std::ranges::any_of(events_, IsAsked)) standing_ = false;
    }
    step_ = false;
}

}  // namespace desktop
