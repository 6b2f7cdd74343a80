#include "host/desktop/key_map.h"

#include <QtCore/qnamespace.h>

#include <algorithm>

#include "toolkit/input_state.h"

namespace desktop {

namespace {

struct SymbolRow {
    std::uint32_t symbol;
    int code;
};
constexpr SymbolRow kSymbols[] = {
    /* Escape   */ {0xFF1B, VK_ESCAPE},
    /* space    */ {0x0020, VK_SPACE},
    /* Left     */ {0xFF51, VK_LEFT},
    /* Up       */ {0xFF52, VK_UP},
    /* Right    */ {0xFF53, VK_RIGHT},
    /* Down     */ {0xFF54, VK_DOWN},
    /* KP_Left  */ {0xFF96, VK_LEFT},
    /* KP_Up    */ {0xFF97, VK_UP},
    /* KP_Right */ {0xFF98, VK_RIGHT},
    /* KP_Down  */ {0xFF99, VK_DOWN},
    /* x, X     */ {0x0078, VK_X},
    /*          */ {0x0058, VK_X},
    /* z, Z     */ {0x007A, VK_Z},
    /*          */ {0x005A, VK_Z},
};

struct QtKeyRow {
    int qtKey;
    int code;
};
constexpr QtKeyRow kQtKeys[] = {
    {Qt::Key_Escape, VK_ESCAPE}, {Qt::Key_Space, VK_SPACE}, {Qt::Key_Left, VK_LEFT}, {Qt::Key_Up, VK_UP},
    {Qt::Key_Right, VK_RIGHT},   {Qt::Key_Down, VK_DOWN},   {Qt::Key_X, VK_X},       {Qt::Key_Z, VK_Z},
};

// Keys of the bottom letter row on every PC keyboard.
constexpr std::uint32_t kScanZ = 52;
constexpr std::uint32_t kScanX = 53;

// Letters beyond Latin-1. From 0xFE00 to 0xFFFF lie dead keys and keys that write nothing.
bool IsForeignLetter(std::uint32_t symbol) {
    return symbol > 0xFF && (symbol < 0xFE00 || symbol > 0xFFFF);
}

// Keys without a scan code (synthetic ones) are told apart by what Qt calls them.
std::uint32_t PlaceOf(const NativeKey& key) {
    constexpr std::uint32_t kNoScan = 0x80000000u;
    return key.scan != 0 ? key.scan : kNoScan | static_cast<std::uint32_t>(key.qtKey);
}

}  // namespace

int VirtualKeyOf(const NativeKey& key) {
    for (const SymbolRow& row : kSymbols) {
        if (row.symbol == key.symbol) return row.code;
    }
    for (const QtKeyRow& row : kQtKeys) {
        if (row.qtKey == key.qtKey) return row.code;
    }
    if (!IsForeignLetter(key.symbol)) return 0;
    return key.scan == kScanX ? VK_X : key.scan == kScanZ ? VK_Z : 0;
}

bool Keyboard::IsDown(int code) const {
    return std::any_of(codes_.begin(), codes_.end(), [code](const auto& held) { return held.second == code; });
}

std::set<int> Keyboard::Down() const {
    std::set<int> down;
    for (const auto& [place, code] : codes_) {
        if (code != 0) down.insert(code);
    }
    return down;
}

void Keyboard::Press(const NativeKey& key, std::vector<InputEvent>& events) {
    const int code = VirtualKeyOf(key);
    if (code == 0 || codes_.contains(PlaceOf(key))) return;
    if (!IsDown(code)) events.push_back({InputEvent::Kind::keyDown, code});
    codes_[PlaceOf(key)] = code;
}

Keyboard::Codes::iterator Keyboard::LetGo(Codes::iterator held, std::vector<InputEvent>& events) {
    const int code = held->second;
    const auto next = codes_.erase(held);
    if (code != 0 && !IsDown(code)) events.push_back({InputEvent::Kind::keyUp, code});
    return next;
}

void Keyboard::Release(const NativeKey& key, std::vector<InputEvent>& events) {
    const auto held = codes_.find(PlaceOf(key));
    if (held != codes_.end() && held->second != 0) LetGo(held, events);
}

void Keyboard::ReleaseAll(std::vector<InputEvent>& events) {
    codes_.clear();
    events.push_back({InputEvent::Kind::allKeysUp});
}

void Keyboard::Resume(const std::vector<NativeKey>& down, std::vector<InputEvent>& events) {
    for (const NativeKey& key : down) {
        if (EndsOrStarts(VirtualKeyOf(key))) {
            codes_[PlaceOf(key)] = 0;
        } else {
            Press(key, events);
        }
    }
}

void Keyboard::KeepOnly(const std::vector<std::uint32_t>& places, std::vector<InputEvent>& events) {
    for (auto held = codes_.begin(); held != codes_.end();) {
        const bool down = std::find(places.begin(), places.end(), held->first) != places.end();
        held = down ? std::next(held) : LetGo(held, events);
    }
}

bool EndsOrStarts(int code) {
    return code == VK_ESCAPE || code == VK_SPACE;
}

}  // namespace desktop
