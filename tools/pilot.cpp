#include "pilot.h"

#include <algorithm>
#include <cmath>
#include <random>

#include "platform/input_state.h"

namespace {

constexpr double kShipCentreX = 32, kShipCentreY = 33;  // of the hit box, from the ship's corner
constexpr double kHitHalfWidth = 16, kHitHalfHeight = 9;

class IdlePilot : public Pilot {
  public:
    PilotKeys Decide(const GameState&) override { return {.fire = true}; }
};

class SweepPilot : public Pilot {
  public:
    PilotKeys Decide(const GameState& state) override {
        if (state.MyX <= 0) right_ = true;
        if (state.MyX >= state.MyMaxX) right_ = false;
        return {.left = !right_, .right = right_, .fire = true};
    }

  private:
    bool right_ = true;
};

// What the pilot sees of the shots and enemies at one moment.
struct Seen {
    struct Shot {
        double x, y, vx, vy, half;
    };
    struct Target {
        double x, y, width, height;
        bool boss;
    };
    std::vector<Shot> shots;
    std::vector<Target> targets;
};

double HalfSize(Byte kind) {
    return kind == 1 ? 2 : kind == 4 ? 12 : 6;
}

Seen Look(const GameState& state) {
    Seen seen;
    for (int j = 0; j <= state.EneShotMax; ++j) {
        const EneShotType& shot = state.EneShot[j];
        if (shot.Used != 1) continue;
        const double middle = shot.Kind == 4 ? 22 : shot.Kind <= 3 ? 4 : 8;
        const double corner = shot.Kind == 1 ? 0 : middle;
        seen.shots.push_back({shot.X + corner, shot.Y + corner, shot.VX, shot.VY, HalfSize(shot.Kind)});
    }
    for (int i = 0; i <= state.EnemyMax; ++i) {
        const EnemyType& enemy = state.Enemy[i];
        if (enemy.State != 1 || enemy.Kind >= kEnemyKinds) continue;
        const EnemyDataType& kind = state.EnemyData[enemy.Kind];
        seen.targets.push_back({enemy.X + kind.Width / 2.0, enemy.Y + kind.Height / 2.0, double(kind.Width),
                                double(kind.Height), enemy.Kind >= 37});
    }
    return seen;
}

// Sees everything kReaction frames late (about a fifth of a second), carries shots on in a straight line, weighs the
// nine directions by how close shots would come in the next frames, and thinks again only every few frames. Now and
// then it overlooks a shot.
class DodgePilot : public Pilot {
  public:
    explicit DodgePilot(std::uint64_t seed) : random_(seed) {}

    PilotKeys Decide(const GameState& state) override {
        memory_.push_back(Look(state));
        if (memory_.size() > kReaction + 1) memory_.pop_front();
        if (++frame_ % kThinkEvery == 0) keys_ = Think(state, memory_.front());
        keys_.fire = true;
        keys_.mode = WantsModeKey(state, memory_.front());
        return keys_;
    }

  private:
    static constexpr std::size_t kReaction = 5;  // frames
    static constexpr int kThinkEvery = 2;
    static constexpr int kLookAhead = 14;        // frames
    static constexpr double kOverlooked = 0.12;  // chance to miss a shot in one look
    static constexpr int kCrowd = 7;             // enemies from which the spread pays

    double Chance() { return std::uniform_real_distribution<double>(0, 1)(random_); }

    PilotKeys Think(const GameState& state, Seen seen) {
        std::erase_if(seen.shots, [&](const Seen::Shot&) { return Chance() < kOverlooked; });
        double best = 1e18;
        PilotKeys choice;
        for (int dy = -1; dy <= 1; ++dy) {
            for (int dx = -1; dx <= 1; ++dx) {
                const double cost = Cost(state, seen, dx, dy);
                if (cost >= best) continue;
                best = cost;
                choice = {.up = dy<0, .down = dy> 0, .left = dx<0, .right = dx> 0};
            }
        }
        return choice;
    }

    double Cost(const GameState& state, const Seen& seen, int dx, int dy) const {
        constexpr int kMoveFrames = 4;  // it plans to move on for this long and then stop
        double cost = (dx != 0) * 0.3 + (dy != 0) * 0.5;
        double x = state.MyX, y = state.MyY;
        for (int t = 1; t <= kLookAhead; ++t) {
            if (t <= kMoveFrames) {
                x = std::clamp(x + dx * state.MySpeed, 0.0, double(state.MyMaxX));
                y = std::clamp(y + dy * state.MySpeed, 0.0, double(state.MyMaxY));
            }
            for (const Seen::Shot& shot : seen.shots) cost += Danger(shot, x, y, t);
        }
        return cost + Unease(state, seen, x, y);
    }

    // Near misses count a little, the nearer the more.
    static double Danger(const Seen::Shot& shot, double x, double y, int t) {
        constexpr double kComfort = 14;  // pixels
        const double ahead = t + static_cast<double>(kReaction);
        const double gapX = std::abs(shot.x + shot.vx * ahead - (x + kShipCentreX)) - kHitHalfWidth - shot.half;
        const double gapY = std::abs(shot.y + shot.vy * ahead - (y + kShipCentreY)) - kHitHalfHeight - shot.half;
        const double gap = std::max(gapX, gapY);
        if (gap >= kComfort) return 0;
        const double closeness = gap <= 0 ? 10 : 1 - gap / kComfort;
        return closeness * 60.0 / (t + 4);
    }

    // Wants to be low on the screen, not in a corner, and under something to shoot at.
    static double Unease(const GameState& state, const Seen& seen, double x, double y) {
        constexpr double kHomeY = 390;
        double unease = std::abs(y - kHomeY) / 60 + std::pow(std::abs(x - state.MyMaxX / 2.0) / 128, 4);
        double nearest = 1e9;
        for (const Seen::Target& target : seen.targets) {
            if (target.y < -20 || target.y > y || target.x < -20 || target.x > 340) continue;
            const double away = std::abs(target.x - (x + kShipCentreX)) - (target.boss ? target.width / 4 : 0);
            nearest = std::min(nearest, std::max(away, 0.0));
        }
        return nearest > 1e8 ? unease : unease + nearest / 25;
    }

    // A tap whenever the mode is not the one that suits the screen.
    bool WantsModeKey(const GameState& state, const Seen& seen) {
        const bool boss = std::any_of(seen.targets.begin(), seen.targets.end(), [](const auto& t) { return t.boss; });
        const bool spread = !boss && static_cast<int>(seen.targets.size()) >= kCrowd;
        const bool wrong = (state.ShotMode != 0) != spread;
        modeHeld_ = wrong && !modeHeld_ && frame_ % 12 == 0;
        return modeHeld_;
    }

    std::mt19937_64 random_;
    std::deque<Seen> memory_;
    PilotKeys keys_;
    int frame_ = 0;
    bool modeHeld_ = false;
};

}  // namespace

std::unique_ptr<Pilot> MakePilot(std::string_view name, std::uint64_t seed) {
    if (name == "idle") return std::make_unique<IdlePilot>();
    if (name == "sweep") return std::make_unique<SweepPilot>();
    if (name == "dodge") return std::make_unique<DodgePilot>(seed);
    return nullptr;
}

void PilotHands::Press(const PilotKeys& keys, std::vector<InputEvent>& events) {
    const auto change = [&](int key, bool was, bool is) {
        if (was != is) events.push_back({is ? InputEvent::Kind::keyDown : InputEvent::Kind::keyUp, key});
    };
    change(VK_UP, held_.up, keys.up);
    change(VK_DOWN, held_.down, keys.down);
    change(VK_LEFT, held_.left, keys.left);
    change(VK_RIGHT, held_.right, keys.right);
    change(VK_X, held_.fire, keys.fire);
    change(VK_Z, held_.mode, keys.mode);
    held_ = keys;
}
