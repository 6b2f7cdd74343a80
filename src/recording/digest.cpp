#include "recording/digest.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <sstream>
#include <string_view>
#include <type_traits>

#include "stage/data_files.h"
#include "toolkit/folder.h"

namespace {

// FNV-1a, 64 bits.
class Hash {
  public:
    void Add(std::uint64_t value, unsigned bytes) {
        for (unsigned i = 0; i < bytes; ++i) AddByte(static_cast<std::uint8_t>(value >> (8 * i)));
    }
    void AddByte(std::uint8_t byte) { value_ = (value_ ^ byte) * 0x100000001B3u; }
    std::uint64_t Value() const { return value_; }

  private:
    std::uint64_t value_ = 0xCBF29CE484222325u;
};

// NaNs compare equal whatever their bits: which bits arise is left to the compiler.
std::uint64_t BitsOf(Single value) {
    constexpr std::uint32_t kAnyNan = 0x7FC00000u;
    return std::isnan(value) ? kAnyNan : std::bit_cast<std::uint32_t>(value);
}

template <typename T>
std::uint64_t BitsOf(T value) {
    return static_cast<std::uint64_t>(value);
}

#define FIELD(name) visit(#name, s.name)

template <typename State, typename Visit>
void VisitFlow(State& s, Visit visit) {
    FIELD(DigestMode), FIELD(Level), FIELD(QuitGame), FIELD(AllClear), FIELD(BgmLoop);
}

template <typename State, typename Visit>
void VisitScore(State& s, Visit visit) {
    FIELD(Score), FIELD(HiScore);
}

template <typename State, typename Visit>
void VisitScript(State& s, Visit visit) {
    FIELD(StageNo), FIELD(StageIndex), FIELD(StageTimer), FIELD(BossDefeated), FIELD(StageClear), FIELD(GameOver);
    FIELD(MessageCount);
}

template <typename State, typename Visit>
void VisitBackground(State& s, Visit visit) {
    FIELD(ScrollY), FIELD(ScrollSpeed), FIELD(StarMax), FIELD(StarReverse);
    for (auto& star : s.Star) visit("Star.X", star.X), visit("Star.Y", star.Y), visit("Star.Speed", star.Speed);
}

template <typename State, typename Visit>
void VisitShip(State& s, Visit visit) {
    FIELD(MyX), FIELD(MyY), FIELD(MyMaxX), FIELD(MyMaxY), FIELD(MySpeed), FIELD(MyShipFrame), FIELD(MyPower);
    FIELD(MyDead), FIELD(DeadCount);
}

template <typename State, typename Visit>
void VisitMyShots(State& s, Visit visit) {
    FIELD(ShotMode), FIELD(MyShotWait), FIELD(ModeKeyFree);
    for (auto& shot : s.MyShot) {
        visit("MyShot.X", shot.X), visit("MyShot.Y", shot.Y), visit("MyShot.VX", shot.VX);
        visit("MyShot.VY", shot.VY), visit("MyShot.Used", shot.Used);
    }
}

template <typename State, typename Visit>
void VisitEnemies(State& s, Visit visit) {
    FIELD(EnemyMax), FIELD(BomWait), FIELD(HitSoundWait);
    for (auto& e : s.Enemy) {
        visit("Enemy.X", e.X), visit("Enemy.Y", e.Y), visit("Enemy.Kind", e.Kind), visit("Enemy.HP", e.HP);
        visit("Enemy.Anime", e.Anime), visit("Enemy.State", e.State), visit("Enemy.BomFrame", e.BomFrame);
        visit("Enemy.Step", e.Step), visit("Enemy.Looping", e.Looping), visit("Enemy.LoopCount", e.LoopCount);
    }
}

template <typename State, typename Visit>
void VisitEnemyShots(State& s, Visit visit) {
    FIELD(EneShotMax);
    for (auto& shot : s.EneShot) {
        visit("EneShot.Kind", shot.Kind), visit("EneShot.X", shot.X), visit("EneShot.Y", shot.Y);
        visit("EneShot.VX", shot.VX), visit("EneShot.VY", shot.VY), visit("EneShot.Used", shot.Used);
        visit("EneShot.Count", shot.Count), visit("EneShot.Turns", shot.Turns);
        visit("EneShot.TrailWait", shot.TrailWait);
        for (auto& x : shot.TX) visit("EneShot.TX", x);
        for (auto& y : shot.TY) visit("EneShot.TY", y);
    }
}

#undef FIELD

template <typename State, typename Visit>
void VisitGroup(State& s, StateGroup group, Visit visit) {
    switch (group) {
        case StateGroup::flow:
            return VisitFlow(s, visit);
        case StateGroup::score:
            return VisitScore(s, visit);
        case StateGroup::script:
            return VisitScript(s, visit);
        case StateGroup::background:
            return VisitBackground(s, visit);
        case StateGroup::ship:
            return VisitShip(s, visit);
        case StateGroup::myShots:
            return VisitMyShots(s, visit);
        case StateGroup::enemies:
            return VisitEnemies(s, visit);
        case StateGroup::enemyShots:
            return VisitEnemyShots(s, visit);
        case StateGroup::random:
            visit("RandomState", s.RandomState);
            return;
        case StateGroup::count:
            return;
    }
}

void HashGroup(Hash& hash, const GameState& state, StateGroup group) {
    VisitGroup(state, group, [&](const char*, auto value) { hash.Add(BitsOf(value), sizeof value); });
}

// The fields that setting up a game leaves as they are, and what the last one may have left there. Where a game begins
// with something in use (State, Used but the player's), it would be no game that this program has set up.
bool MayBeLeft(std::string_view name) {
    constexpr std::string_view kSingle[] = {"BossDefeated", "MyShipFrame", "DeadCount",   "MyShotWait",
                                            "ModeKeyFree",  "BomWait",     "HitSoundWait"};
    if (name == "Enemy.State" || name == "EneShot.Used") return false;
    const bool slot = name.starts_with("MyShot.") || name.starts_with("Enemy.") || name.starts_with("EneShot.");
    return slot || std::ranges::find(kSingle, name) != std::end(kSingle);
}

template <typename State, typename Visit>
void VisitAll(State& state, Visit visit) {
    int number = 0;
    for (int i = 0; i < kStateGroups; ++i) {
        VisitGroup(state, static_cast<StateGroup>(i), [&](std::string_view name, auto& value) {
            if (MayBeLeft(name)) visit(name, number, value);
            ++number;
        });
    }
}

template <typename T>
T FromBits(std::uint64_t bits) {
    if constexpr (std::is_same_v<T, Single>) return std::bit_cast<Single>(static_cast<std::uint32_t>(bits));
    if constexpr (!std::is_same_v<T, Single>) return static_cast<T>(bits);
}

template <typename T>
std::string ValueText(T value) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    if constexpr (sizeof(T) == 1) {
        text << static_cast<int>(value);
    } else {
        text << value;
    }
    return text.str();
}

}  // namespace

const char* GroupName(StateGroup group) {
    constexpr const char* kNames[] = {"flow",     "score",   "script",      "background", "ship",
                                      "my shots", "enemies", "enemy shots", "random"};
    static_assert(std::size(kNames) == kStateGroups);
    return kNames[static_cast<int>(group)];
}

FrameDigest DigestFrame(const GameState& state) {
    FrameDigest digest{};
    for (int i = 0; i < kStateGroups; ++i) {
        Hash hash;
        HashGroup(hash, state, static_cast<StateGroup>(i));
        const std::uint64_t folded = hash.Value() ^ hash.Value() >> 32;
        digest[static_cast<std::size_t>(i)] =
            static_cast<std::uint8_t>(folded ^ folded >> 8 ^ folded >> 16 ^ folded >> 24);
    }
    return digest;
}

std::uint64_t DigestState(const GameState& state) {
    Hash hash;
    for (int i = 0; i < kStateGroups; ++i) HashGroup(hash, state, static_cast<StateGroup>(i));
    return hash.Value();
}

std::string DescribeGroup(const GameState& state, StateGroup group) {
    std::string text;
    VisitGroup(state, group, [&](const char* name, auto value) {
        if (!text.empty()) text += ' ';
        text += std::string(name) + '=' + ValueText(value);
    });
    return text;
}

std::vector<LeftField> FindLeftovers(const GameState& state) {
    std::vector<LeftField> left;
    VisitAll(state, [&](std::string_view, int number, const auto& value) {
        std::uint64_t bits = BitsOf(value);
        if constexpr (sizeof value < sizeof bits) bits &= (std::uint64_t{1} << 8 * sizeof value) - 1;
        if (bits != 0) left.push_back({number, bits});
    });
    return left;
}

void PutLeftovers(const std::vector<LeftField>& left, GameState& state) {
    auto next = left.begin();
    VisitAll(state, [&](std::string_view, int number, auto& value) {
        using Value = std::remove_reference_t<decltype(value)>;
        value = Value{};
        if (next != left.end() && next->field == number) value = FromBits<Value>(next++->bits);
    });
    if (state.MyShipFrame >= kShipFrames) state.MyShipFrame = 0;  // an index, whatever a file says
}

bool LeftAnAdvantage(const std::vector<LeftField>& left) {
    static GameState start;  // large
    start = {};
    PutLeftovers(left, start);
    const bool shots = std::ranges::any_of(start.MyShot, [](const MyShotType& shot) { return shot.Used != 0; });
    return shots || start.BossDefeated != False;
}

std::uint64_t DataDigest() {
    Hash hash;
    for (const std::string_view name : TableFiles()) {
        for (const std::uint8_t byte : ReadFolderFile(name).bytes) hash.AddByte(byte);
        hash.AddByte(0xFF);
    }
    return hash.Value();
}
