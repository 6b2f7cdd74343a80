// The length of a frame, for telling times.
#pragma once

#include <string>

// A frame lasts the first millisecond past 38.
inline constexpr double kSecondsPerFrame = 0.039;

// "7:15"
std::string TimeOf(int frames);
