// Patterns and kinds made from scratch: a place of their own in the tables, and a way drawn by hand.
#pragma once

#include <string>
#include <vector>

#include "author/drawing.h"
#include "author/tables.h"

// A kind like `like`, with a movement pattern of its own that begins as a copy, in the first places that nothing uses:
// `made` is its number. Empty, or why there is none; then nothing has changed.
std::string NewKind(Tables& tables, int like, int& made);

// The movement pattern becomes the way along `line` (the middle of the sprite, in pixels of the playfield), `speed`
// pixels a frame, then straight on until a sprite of that size has left the field. Animation frames stay as they follow
// each other; what was fired is gone. A line too long for 255 steps is flown faster. Empty, or why it cannot be done.
std::string FlyAlong(Tables& tables, int kind, const std::vector<DrawnPoint>& line, Single speed);
