// The pilot that looks: three hands of one mind.
#pragma once

#include <cstdint>
#include <deque>
#include <string_view>

#include "pilot.h"
#include "pilot_eyes.h"

// How well it plays.
struct Hand {
    std::string_view name;
    std::size_t reaction;  // frames it sees everything late
    Eyes eyes;
    int lookAhead;   // frames
    double home;     // row where its ship's corner likes to be
    double highest;  // row above which it never goes
    bool plans;      // weighs moves of two lengths, the others only short ones
};

// Null for a name that is no hand's.
const Hand* FindHand(std::string_view name);

// Sees everything late, carries shots on in a straight line, weighs the nine directions by how close shots would come
// in the next frames, and thinks again only every other frame. Overlooks some shots.
class DodgePilot : public Pilot {
  public:
    DodgePilot(const Hand& hand, Weapon weapon, std::uint64_t seed)
        : hand_(hand), weapon_(weapon), look_(hand.eyes, seed) {}

    PilotKeys Decide(const GameState& state) override;

  private:
    PilotKeys Think(const GameState& state, const Seen& seen) const;
    double BestCost(const GameState& state, const Seen& seen, int dx, int dy) const;
    double Cost(const GameState& state, const Seen& seen, int dx, int dy, int moveFrames) const;
    double Danger(const Seen::Shot& shot, double x, double y, int t) const;
    double Unease(const GameState& state, const Seen& seen, double x, double y) const;
    bool WantsSpread(const GameState& state, const Seen& seen) const;
    bool TapsMode(const GameState& state, const Seen& seen);

    const Hand& hand_;
    Weapon weapon_;
    Look look_;
    std::deque<Seen> memory_;
    PilotKeys keys_;
    int frame_ = 0;
    bool modeHeld_ = false;
};
