// Pilots that play without a person: for simulation and recorded games. A pilot sees only what is on the screen, some
// frames late, and answers with keys.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/events.h"
#include "state/state.h"

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

// Which shot a pilot fires: always the same, or the spread whenever three or more targets stand in the fan's reach.
enum class Weapon { forward, spread, switching };

// Places across the field, evenly from the left end of the ship's way to the right, where a pilot can stand still.
inline constexpr int kColumns = 16;

// The names that MakePilot knows.
std::vector<std::string> PilotNames();

// "idle" stays where a stage begins and fires; "column0" to "column15" go to that column and stay; "sweep" flies from
// side to side; "dodge", "beginner" and "practised" look and dodge (dodge_pilot.h). Null for any other name. `seed`
// varies the mistakes of those that look; no pilot draws from Rnd.
std::unique_ptr<Pilot> MakePilot(std::string_view name, Weapon weapon, std::uint64_t seed);

// Turns wishes into key events against what was held before.
class PilotHands {
  public:
    void Press(const PilotKeys& keys, std::vector<InputEvent>& events);

  private:
    PilotKeys held_;
};
