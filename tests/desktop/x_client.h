// Another program on the same X display: it presses keys and mouse buttons as a user does and has a window of its own
// that can take the keyboard. Safe to use from one thread beside the program's own.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

struct _XDisplay;

class XClient {
  public:
    XClient();
    ~XClient();
    XClient(const XClient&) = delete;
    XClient& operator=(const XClient&) = delete;

    void Key(std::uint32_t symbol, bool down);
    void Tap(std::uint32_t symbol);
    void Click(int x, int y);
    // Pressed at the first place, moved over the others, let go at the last one.
    void Drag(const std::vector<std::pair<int, int>>& places);
    void AutoRepeat(bool on);
    // The own window takes the keyboard; `window` gets it back.
    void TakeKeyboard();
    void GiveKeyboard(unsigned long window);
    bool KeyboardIsIn(unsigned long window);
    // Where the window's top left corner stands on the screen by now; its program may not have heard of it yet.
    std::pair<int, int> PlaceOf(unsigned long window);
    void Minimise(unsigned long window);
    bool HasWindowManager();
    // Waits for the window manager if on_screen.sh starts one: those that start among windows take the keyboard from
    // one to the next for a while. False if it does not come.
    bool WaitForWindowManager();

  private:
    void Activate(unsigned long window);

    _XDisplay* display_;
    unsigned long window_;
};
