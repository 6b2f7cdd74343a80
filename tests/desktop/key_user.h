// Somebody at the keyboard who looks at the window: another client of the X display. For a thread of its own.
#pragma once

struct _XDisplay;

class KeyUser {
  public:
    // Gives the window the keyboard.
    explicit KeyUser(unsigned long window);
    ~KeyUser();
    KeyUser(const KeyUser&) = delete;
    KeyUser& operator=(const KeyUser&) = delete;

    // The X key goes down or up; returns when the display has seen it.
    void Press(bool down);
    // Returns when the window's pixel there has that colour (0xRRGGBB).
    void WaitForColor(int x, int y, unsigned long color);

  private:
    _XDisplay* display_;
    unsigned long window_;
};
