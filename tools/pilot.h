// Pilots that play without a person: for simulation and recorded games. A pilot sees only what is on the screen, some
// frames late, and answers with keys.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <string_view>
#include <vector>

#include "host/events.h"
#include "shell/state.h"

// The keys a pilot wants held.
struct PilotKeys {
    bool up = false;
    bool down = false;
    bool left = false;
    bool right = false;
    bool fire = false;
    bool mode = false;

    bool operator==(const PilotKeys&) const = default;
};

class Pilot {
  public:
    virtual ~Pilot() = default;
    // Called once per frame, at its yield.
    virtual PilotKeys Decide(const GameState& state) = 0;
};

// "idle" does nothing but fire, "sweep" flies from side to side firing, "dodge" keeps away from shots as a person of
// middling skill does. Null for any other name. `seed` varies the dodging pilot's mistakes; it never draws from Rnd.
std::unique_ptr<Pilot> MakePilot(std::string_view name, std::uint64_t seed);

// Turns wishes into key events against what was held before.
class PilotHands {
  public:
    void Press(const PilotKeys& keys, std::vector<InputEvent>& events);

  private:
    PilotKeys held_;
};
