// The same frame by a common library, for comparison.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "touched.h"

struct Painter {
    std::function<void()> paint;                 // draws the frame
    std::function<std::vector<Color>()> pixels;  // of the last one, row by row
};

// A painter of what was drawn, its pictures prepared; nothing where the program was built without such a library.
std::optional<Painter> MakePainter(const std::vector<Touched>& drawn, int width, int height);
