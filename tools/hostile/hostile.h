// Whole games on hostile data: random tables, scripts, pictures, keys and menu clicks, in every play and difficulty.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

struct HostileReport {
    int frames = 0;
    double slowestFrame = 0;  // seconds of processor time, waits on the manual clock included
    bool ended = false;       // the game came to its end by itself or by a key; false: the program was ended
};

// Plays one game made from `bytes` (the same bytes give the same game), for at most `frameLimit` frames. `folder` is
// written to. `seen` is called after each frame.
HostileReport PlayHostileGame(std::span<const std::uint8_t> bytes, const std::string& folder, int frameLimit,
                              void (*seen)() = nullptr);
