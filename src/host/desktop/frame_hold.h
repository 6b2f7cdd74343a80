// A game that stands still between two frames, and goes on frame by frame: for authors. As with the pause, the game
// waits in its yield and its clock stands still; windows beside it stay alive, and the keyboard is free for them.
#pragma once

#include <vector>

#include "host/events.h"

namespace desktop {

class FrameHold {
  public:
    explicit FrameHold(const std::vector<InputEvent>& events) : events_(events) {}

    bool IsStanding() const { return standing_; }
    void SetStanding(bool standing) { standing_ = standing; }
    // Plays one frame more; a game that does not stand yet stands after it.
    void Step();

    // Called at every yield, after the window's events. Returns at once unless a game is to stand still; else when it
    // goes on, a frame is asked for, or the player has chosen a menu item, closed the window or pressed Esc, which ends
    // the standing.
    void Hold();

  private:
    static bool Leaves(const InputEvent& event);
    bool Wanted() const;

    const std::vector<InputEvent>& events_;
    bool standing_ = false;
    bool step_ = false;
};

}  // namespace desktop
