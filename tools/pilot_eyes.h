// What a pilot sees of the field, and what it overlooks.
#pragma once

#include <array>
#include <cstdint>
#include <random>
#include <vector>

#include "state/state.h"

struct Seen {
    struct Shot {
        double x, y;  // the middle of what hits
        double vx, vy;
        double half;  // half the size of what hits
    };
    struct Target {
        double x, y;  // the middle
        double width;
        bool boss;
    };
    std::vector<Shot> shots;
    std::vector<Target> targets;
};

// How well a pilot looks.
struct Eyes {
    double overlooked;  // share of the shots
    int lapse;          // frames for which a shot stays overlooked, at least; up to twice as many. 0: anew each look
};

class Look {
  public:
    Look(const Eyes& eyes, std::uint64_t seed) : eyes_(eyes), random_(seed) {}

    // Called once per frame.
    Seen At(const GameState& state);

  private:
    bool Overlooks(int slot, const EneShotType& shot);

    Eyes eyes_;
    std::mt19937_64 random_;
    struct Attention {
        bool flying = false;
        bool overlooked = false;
        int frames = 0;  // until it is decided again
    };
    std::array<Attention, kEneShotSlots> attention_{};
};
