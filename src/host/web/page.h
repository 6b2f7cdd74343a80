// The page around the game, as the host sees it: an object with methods, given to the program when it is started. What
// each method does is said in page/page.js.
#pragma once

#include <emscripten/val.h>

namespace web {

const emscripten::val& Page();

// What the program lets the browser do before it goes on. Nothing else here gives the browser its turn.
enum class Turn {
    events,   // take what has happened: a fraction of a millisecond
    refresh,  // show the picture: to the display's next refresh
    until,    // rest until `time`, the milliseconds of timeGetTime
    step,     // stand still until something happens, at most 50 ms
};
void Give(Turn turn, double time = 0);

}  // namespace web
