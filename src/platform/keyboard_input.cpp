#include "platform/keyboard_input.h"

namespace {

struct SingleKey {
    int key;
    Integer code;
};
constexpr SingleKey kSingleKeys[] = {{VK_UP, 1}, {VK_RIGHT, 3}, {VK_DOWN, 5}, {VK_LEFT, 7}};

struct KeyPair {
    int first;
    int second;
    Integer code;
};
constexpr KeyPair kKeyPairs[] = {
    {VK_UP, VK_RIGHT, 2}, {VK_UP, VK_LEFT, 8}, {VK_DOWN, VK_RIGHT, 4}, {VK_DOWN, VK_LEFT, 6}};

// The states are combined bit by bit: a tapped key (low bit) makes no pair with a key that is only down (high bit).
bool PairPressed(const KeyPair& pair) {
    const int first = GetAsyncKeyState(pair.first);
    const int second = GetAsyncKeyState(pair.second);
    return (first & second) != 0;
}

}  // namespace

Integer GetKeyDirection() {
    Integer code = 0;
    for (const SingleKey& single : kSingleKeys) {
        if (KeyPressed(single.key)) code = single.code;
    }
    for (const KeyPair& pair : kKeyPairs) {
        if (PairPressed(pair)) code = pair.code;
    }
    for (const int key : {VK_UP, VK_RIGHT, VK_DOWN, VK_LEFT}) DiscardKey(key);
    return code;
}
