#include "x_client.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>

#include <chrono>
#include <cstdlib>
#include <thread>

// A window that is just going away cannot take the keyboard; that is no reason to end the tests.
XClient::XClient() : display_(XOpenDisplay(nullptr)) {
    XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
    window_ = XCreateSimpleWindow(display_, DefaultRootWindow(display_), 0, 500, 80, 60, 1, 0, 0);
    XMapWindow(display_, window_);
    XSync(display_, False);
}

XClient::~XClient() {
    XCloseDisplay(display_);
}

void XClient::Key(std::uint32_t symbol, bool down) {
    XTestFakeKeyEvent(display_, XKeysymToKeycode(display_, symbol), down ? True : False, CurrentTime);
    XSync(display_, False);
}

void XClient::Tap(std::uint32_t symbol) {
    Key(symbol, true);
    Key(symbol, false);
}

void XClient::Click(int x, int y) {
    XTestFakeMotionEvent(display_, -1, x, y, CurrentTime);
    XTestFakeButtonEvent(display_, Button1, True, CurrentTime);
    XTestFakeButtonEvent(display_, Button1, False, CurrentTime);
    XSync(display_, False);
}

void XClient::Drag(const std::vector<std::pair<int, int>>& places) {
    for (std::size_t i = 0; i < places.size(); ++i) {
        XTestFakeMotionEvent(display_, -1, places[i].first, places[i].second, CurrentTime);
        if (i == 0) XTestFakeButtonEvent(display_, Button1, True, CurrentTime);
        XSync(display_, False);
        std::this_thread::sleep_for(std::chrono::milliseconds(10));  // a hand is no quicker
    }
    XTestFakeButtonEvent(display_, Button1, False, CurrentTime);
    XSync(display_, False);
}

void XClient::AutoRepeat(bool on) {
    (on ? XAutoRepeatOn : XAutoRepeatOff)(display_);
    XSync(display_, False);
}

void XClient::TakeKeyboard() {
    Activate(window_);
}

void XClient::GiveKeyboard(unsigned long window) {
    Activate(window);
}

bool XClient::KeyboardIsIn(unsigned long window) {
    Window focus;
    int revert;
    XGetInputFocus(display_, &focus, &revert);
    return focus == window;
}

std::pair<int, int> XClient::PlaceOf(unsigned long window) {
    int x = 0, y = 0;
    Window child;
    XTranslateCoordinates(display_, window, DefaultRootWindow(display_), 0, 0, &x, &y, &child);
    return {x, y};
}

void XClient::Minimise(unsigned long window) {
    XIconifyWindow(display_, window, DefaultScreen(display_));
    XSync(display_, False);
}

bool XClient::HasWindowManager() {
    Atom type;
    int format;
    unsigned long items, left;
    unsigned char* data = nullptr;
    const Atom name = XInternAtom(display_, "_NET_SUPPORTING_WM_CHECK", False);
    XGetWindowProperty(display_, DefaultRootWindow(display_), name, 0, 1, False, XA_WINDOW, &type, &format, &items,
                       &left, &data);
    if (data) XFree(data);
    return type == XA_WINDOW;
}

bool XClient::WaitForWindowManager() {
    constexpr int kTries = 400;
    const bool managed = std::getenv("TARNVEIL_TEST_WINDOW_MANAGER") != nullptr;
    for (int i = 0; i < kTries && HasWindowManager() != managed; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return HasWindowManager() == managed;
}

void XClient::Activate(unsigned long window) {
    if (!HasWindowManager()) {
        XSetInputFocus(display_, window, RevertToParent, CurrentTime);
    } else {
        XEvent event{};
        event.xclient.type = ClientMessage;
        event.xclient.window = window;
        event.xclient.message_type = XInternAtom(display_, "_NET_ACTIVE_WINDOW", False);
        event.xclient.format = 32;
        event.xclient.data.l[0] = 2;  // as a pager asks
        XSendEvent(display_, DefaultRootWindow(display_), False, SubstructureRedirectMask | SubstructureNotifyMask,
                   &event);
    }
    XSync(display_, False);
}
