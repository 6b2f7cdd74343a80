// The X server knows the state of every key, whoever has the keyboard.
#include <xcb/xcb.h>

#include <QtGui/QGuiApplication>
#include <cstdlib>
#include <memory>

#include "host/desktop/keys_down.h"

namespace desktop {

namespace {

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};
template <typename Reply>
using ReplyPtr = std::unique_ptr<Reply, Free>;

// Null under another window system.
xcb_connection_t* Connection() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

}  // namespace

std::optional<std::vector<std::uint32_t>> PlacesDown() {
    xcb_connection_t* connection = Connection();
    if (!connection) return {};
    const auto cookie = xcb_query_keymap(connection);
    const ReplyPtr<xcb_query_keymap_reply_t> keymap(xcb_query_keymap_reply(connection, cookie, nullptr));
    if (!keymap) return {};
    std::vector<std::uint32_t> down;
    constexpr std::uint32_t kCodes = 256;  // a bit each
    for (std::uint32_t code = 0; code < kCodes; ++code) {
        if (keymap->keys[code / 8] >> (code % 8) & 1) down.push_back(code);
    }
    return down;
}

std::uint32_t SymbolAt(std::uint32_t place) {
    xcb_connection_t* connection = Connection();
    if (!connection) return 0;
    const auto cookie = xcb_get_keyboard_mapping(connection, static_cast<xcb_keycode_t>(place), 1);
    const ReplyPtr<xcb_get_keyboard_mapping_reply_t> map(xcb_get_keyboard_mapping_reply(connection, cookie, nullptr));
    if (!map || xcb_get_keyboard_mapping_keysyms_length(map.get()) == 0) return 0;
    return xcb_get_keyboard_mapping_keysyms(map.get())[0];
}

}  // namespace desktop
