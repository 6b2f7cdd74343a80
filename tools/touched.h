// What a frame draws: every transfer as the game asks for it, clipped. The benchmark's program has its raster calls
// pass through here (the linker's --wrap).
#pragma once

#include <vector>

#include "toolkit/surface.h"

enum class Draw { copy, paint, mask, sprite, pixel };

struct Touched {
    Draw draw;
    int x, y, width, height;  // on the screen
    const Surface* from;      // null for a pixel
    At image;                 // in `from`
    At mask;                  // of a sprite
    Color color;              // of a pixel
};

// Draws with `work` and returns what it drew, in order.
std::vector<Touched> WhatIsDrawn(void (*work)());
