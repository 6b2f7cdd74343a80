#include "dodge_pilot.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kShipCentreX = 32, kShipCentreY = 33;  // of the hit box, from the ship's corner
constexpr double kHitHalfWidth = 16, kHitHalfHeight = 9;
constexpr int kThinkEvery = 2;  // frames
constexpr int kCrowd = 3;       // targets in the fan's reach from which the spread pays
constexpr int kModeEvery = 12;  // frames between two looks at the weapon

//                        name    late   overlooks   ahead  home  highest  plans
constexpr Hand kHands[] = {{"dodge", 5, {0.12, 0}, 14, 390, 0, false},
                           {"beginner", 9, {1 / 3.0, 26}, 14, 400, 288, false},
                           {"practised", 2, {0.02, 0}, 26, 390, 0, true}};

// The fan widens by 4 pixels with every 20 it climbs; its outer shots start 10 pixels outside the ship.
bool InFan(const Seen::Target& target, double x, double y) {
    const double up = y - target.y;
    const double reach = 43 + target.width / 2 + up / 5;
    return up > 0 && target.y > 0 && std::abs(target.x - (x + kShipCentreX)) < reach;
}

}  // namespace

const Hand* FindHand(std::string_view name) {
    const auto* hand = std::ranges::find(kHands, name, &Hand::name);
    return hand == std::end(kHands) ? nullptr : hand;
}

PilotKeys DodgePilot::Decide(const GameState& state) {
    memory_.push_back(look_.At(state));
    if (memory_.size() > hand_.reaction + 1) memory_.pop_front();
    if (++frame_ % kThinkEvery == 0) keys_ = Think(state, memory_.front());
    keys_.fire = true;
    keys_.mode = TapsMode(state, memory_.front());
    return keys_;
}

PilotKeys DodgePilot::Think(const GameState& state, const Seen& seen) const {
    double best = 1e18;
    PilotKeys choice;
    for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
            const double cost = BestCost(state, seen, dx, dy);
            if (cost >= best) continue;
            best = cost;
            choice = {.up = dy<0, .down = dy> 0, .left = dx<0, .right = dx> 0};
        }
    }
    return choice;
}

// It plans to move on for a while and then to stop.
double DodgePilot::BestCost(const GameState& state, const Seen& seen, int dx, int dy) const {
    constexpr int kShort = 4, kLonger = 6;  // frames
    const double cost = Cost(state, seen, dx, dy, kShort);
    return hand_.plans ? std::min(cost, Cost(state, seen, dx, dy, kLonger)) : cost;
}

double DodgePilot::Cost(const GameState& state, const Seen& seen, int dx, int dy, int moveFrames) const {
    double cost = (dx != 0) * 0.3 + (dy != 0) * 0.5;
    double x = state.MyX, y = state.MyY;
    for (int t = 1; t <= hand_.lookAhead; ++t) {
        if (t <= moveFrames) {
            x = std::clamp(x + dx * state.MySpeed, 0.0, double(state.MyMaxX));
            y = std::clamp(y + dy * state.MySpeed, std::min(hand_.highest, y), double(state.MyMaxY));
        }
        for (const Seen::Shot& shot : seen.shots) cost += Danger(shot, x, y, t);
    }
    return cost + Unease(state, seen, x, y);
}

// Near misses count a little, the nearer the more.
double DodgePilot::Danger(const Seen::Shot& shot, double x, double y, int t) const {
    constexpr double kComfort = 14;  // pixels
    const double ahead = t + static_cast<double>(hand_.reaction);
    const double gapX = std::abs(shot.x + shot.vx * ahead - (x + kShipCentreX)) - kHitHalfWidth - shot.half;
    const double gapY = std::abs(shot.y + shot.vy * ahead - (y + kShipCentreY)) - kHitHalfHeight - shot.half;
    const double gap = std::max(gapX, gapY);
    if (gap >= kComfort) return 0;
    const double closeness = gap <= 0 ? 10 : 1 - gap / kComfort;
    return closeness * 60.0 / (t + 4);
}

// Wants to be at home, not in a corner, and under something to shoot at.
double DodgePilot::Unease(const GameState& state, const Seen& seen, double x, double y) const {
    double unease = std::abs(y - hand_.home) / 60 + std::pow(std::abs(x - state.MyMaxX / 2.0) / 128, 4);
    double nearest = 1e9;
    for (const Seen::Target& target : seen.targets) {
        if (target.y < -20 || target.y > y || target.x < -20 || target.x > 340) continue;
        const double away = std::abs(target.x - (x + kShipCentreX)) - (target.boss ? target.width / 4 : 0);
        nearest = std::min(nearest, std::max(away, 0.0));
    }
    return nearest > 1e8 ? unease : unease + nearest / 25;
}

bool DodgePilot::WantsSpread(const GameState& state, const Seen& seen) const {
    if (weapon_ != Weapon::switching) return weapon_ == Weapon::spread;
    return std::ranges::count_if(seen.targets, [&](const auto& t) { return InFan(t, state.MyX, state.MyY); }) >= kCrowd;
}

// A tap whenever the mode is not the one that suits the screen.
bool DodgePilot::TapsMode(const GameState& state, const Seen& seen) {
    const bool wrong = (state.ShotMode != 0) != WantsSpread(state, seen);
    modeHeld_ = wrong && !modeHeld_ && frame_ % kModeEvery == 0;
    return modeHeld_;
}
