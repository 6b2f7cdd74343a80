// Time, as the operating system gives it.
#pragma once

#include <cstdint>

// Milliseconds on a 32-bit clock that wraps after 49.7 days. Only differences mean anything; take them with ElapsedMs.
std::uint32_t timeGetTime();

// A number that differs from one moment to the next, to seed a game from.
std::uint64_t SystemClockSeed();
