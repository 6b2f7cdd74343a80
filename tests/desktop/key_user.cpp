#include "key_user.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <chrono>
#include <thread>

KeyUser::KeyUser(unsigned long window) : display_(XOpenDisplay(nullptr)), window_(window) {
    XSetInputFocus(display_, window, RevertToParent, CurrentTime);
}

KeyUser::~KeyUser() {
    XCloseDisplay(display_);
}

void KeyUser::Press(bool down) {
    XTestFakeKeyEvent(display_, XKeysymToKeycode(display_, XK_x), down ? True : False, CurrentTime);
    XSync(display_, False);
}

void KeyUser::WaitForColor(int x, int y, unsigned long color) {
    for (unsigned long seen = ~color; seen != color;) {
        XImage* image = XGetImage(display_, window_, x, y, 1, 1, AllPlanes, ZPixmap);
        if (!image) return;
        seen = XGetPixel(image, 0, 0) & 0xFFFFFFu;
        XDestroyImage(image);
        std::this_thread::sleep_for(std::chrono::microseconds(500));
    }
}
