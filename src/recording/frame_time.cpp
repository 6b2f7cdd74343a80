#include "recording/frame_time.h"

#include <cmath>

std::string TimeOf(int frames) {
    const long seconds = std::lround(frames * kSecondsPerFrame), rest = seconds % 60;
    return std::to_string(seconds / 60) + (rest < 10 ? ":0" : ":") + std::to_string(rest);
}
