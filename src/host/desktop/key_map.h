// From the keys of the window system to virtual-key codes.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <vector>

#include "host/events.h"

namespace desktop {

// One key as the window system names it. symbol and scan are 0 where it does not say.
struct NativeKey {
    std::uint32_t symbol;  // X key symbol under the current layout, shift and lock states
    std::uint32_t scan;    // X key code: the place on the keyboard
    int qtKey;             // Qt::Key
};

// The virtual-key code, or 0 for keys the game does not use. X and Z are found by what the layout writes on them; where
// the layout has no Latin letters (kana lock, Cyrillic), by their place.
int VirtualKeyOf(const NativeKey& key);

// Which keys are down. A key is reported up under the code it went down with, even if the layout has changed meanwhile;
// two keys of one code (arrow and keypad arrow) count as one.
class Keyboard {
  public:
    // A key that is down already is no news, so auto-repeat may be passed on.
    void Press(const NativeKey& key, std::vector<InputEvent>& events);
    void Release(const NativeKey& key, std::vector<InputEvent>& events);
    // The keyboard is gone: releases will not be seen.
    void ReleaseAll(std::vector<InputEvent>& events);
    // The keyboard is back, and these keys are down. Those that end or start a game count from their next press on:
    // Esc has perhaps just closed a menu.
    void Resume(const std::vector<NativeKey>& down, std::vector<InputEvent>& events);
    // Only the keys at these places can be down. Also what ends the waiting of keys that were down at Resume: their
    // repeats may look like releases and presses.
    void KeepOnly(const std::vector<std::uint32_t>& places, std::vector<InputEvent>& events);
    bool AnyDown() const { return !codes_.empty(); }
    // The virtual keys that are down.
    std::set<int> Down() const;

  private:
    using Codes = std::map<std::uint32_t, int>;  // by the key's place; 0: does not count until it has been let go
    bool IsDown(int code) const;
    Codes::iterator LetGo(Codes::iterator held, std::vector<InputEvent>& events);
    Codes codes_;
};

// Esc and Space, which end and start a game.
bool EndsOrStarts(int code);

}  // namespace desktop
