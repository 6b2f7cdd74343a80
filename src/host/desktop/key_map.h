// From the keys of the window system to virtual-key codes.
#pragma once

#include <cstdint>
#include <map>
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
    void Press(const NativeKey& key, std::vector<InputEvent>& events);
    void Release(const NativeKey& key, std::vector<InputEvent>& events);
    // The keyboard is gone: releases will not be seen.
    void ReleaseAll(std::vector<InputEvent>& events);

  private:
    bool IsDown(int code) const;
    std::map<std::uint32_t, int> codes_;  // by the key's place
};

}  // namespace desktop
