#include "pilot.h"

#include <charconv>

#include "dodge_pilot.h"
#include "toolkit/input_state.h"

namespace {

// The mode key for pilots that keep one weapon: a tap while the mode is the wrong one.
bool TapMode(const GameState& state, Weapon weapon) {
    return state.ShotMode != (weapon == Weapon::spread ? 1 : 0) && state.ModeKeyFree;
}

class StandingPilot : public Pilot {
  public:
    // `x` is where the ship's corner is to be; -1: where it is.
    StandingPilot(int x, Weapon weapon) : x_(x), weapon_(weapon) {}

    PilotKeys Decide(const GameState& state) override {
        const int away = x_ < 0 ? 0 : x_ - state.MyX;
        return {.left = away <= -kClose, .right = away >= kClose, .fire = true, .mode = TapMode(state, weapon_)};
    }

  private:
    static constexpr int kClose = 6;  // more than half a step of the ship, so that it does not swing
    int x_;
    Weapon weapon_;
};

class SweepPilot : public Pilot {
  public:
    explicit SweepPilot(Weapon weapon) : weapon_(weapon) {}

    PilotKeys Decide(const GameState& state) override {
        if (state.MyX <= 0) right_ = true;
        if (state.MyX >= state.MyMaxX) right_ = false;
        return {.left = !right_, .right = right_, .fire = true, .mode = TapMode(state, weapon_)};
    }

  private:
    bool right_ = true;
    Weapon weapon_;
};

// The column of "columnN", or -1.
int ColumnOf(std::string_view name) {
    constexpr std::string_view kPrefix = "column";
    if (!name.starts_with(kPrefix)) return -1;
    name.remove_prefix(kPrefix.size());
    int column = -1;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), column);
    return error == std::errc() && end == name.data() + name.size() && column < kColumns ? column : -1;
}

}  // namespace

std::vector<std::string> PilotNames() {
    std::vector<std::string> names = {"idle", "sweep", "dodge", "beginner", "practised"};
    for (int i = 0; i < kColumns; ++i) names.push_back("column" + std::to_string(i));
    return names;
}

std::unique_ptr<Pilot> MakePilot(std::string_view name, Weapon weapon, std::uint64_t seed) {
    constexpr int kWayAcross = 256;  // from the leftmost place of the ship's corner to the rightmost
    if (const Hand* hand = FindHand(name)) return std::make_unique<DodgePilot>(*hand, weapon, seed);
    if (name == "idle") return std::make_unique<StandingPilot>(-1, weapon);
    if (name == "sweep") return std::make_unique<SweepPilot>(weapon);
    const int column = ColumnOf(name);
    if (column < 0) return nullptr;
    return std::make_unique<StandingPilot>(column * kWayAcross / (kColumns - 1), weapon);
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
