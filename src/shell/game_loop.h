// One game from its set-up to the moment the player leaves it.
#pragma once

#include <cstdint>

#include "state/state.h"

// Where a game starts. All but the usual start is for authors; recordings keep it.
struct GameStart {
    int entry = 0;       // of the first stage's appearance table
    Single energy = 10;  // 0 < energy <= 10; only with an entry
    Byte shotMode = 0;   // the same; 0 forward, 1 spread

    bool operator==(const GameStart&) const = default;
};
inline GameStart gameStart;

// Set by who wants a game at once, wherever the program is: a running game or the ending is left, and the title starts
// the next one, which takes the wish back.
inline bool gameAsked = false;

// Runs one game. Called by TitleScreen; returns when the game is left.
void GameLoop();

// Sets up a new game, up to its first frame. What GameLoop begins with.
void SetUpGame();

// One frame of a game that is set up. False when the game is left.
bool PlayFrame();

// Watchers of a game: recording, replay, simulation. They draw nothing and change nothing of the state.
struct GameWatcher {
    void (*Started)(std::uint64_t seed) = nullptr;  // the game is set up; the first frame follows
    void (*FrameDone)() = nullptr;                  // a frame was played, before its yield to the window system
    void (*Ended)() = nullptr;
    // An author has changed tables or state under the running game: it cannot be played again from its events.
    void (*Disturbed)() = nullptr;
};
inline GameWatcher gameWatcher;
