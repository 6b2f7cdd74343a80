// Time, as the operating system gives it.
#pragma once

#include <cstdint>
#include <string>

// Milliseconds on a 32-bit clock that wraps after 49.7 days. Only differences mean anything; take them with ElapsedMs.
std::uint32_t timeGetTime();

// Rests, without taking events, until shortly before timeGetTime() comes to `time`; returns early rather than late, and
// at once when that moment is past. The caller turns on the clock for what is left.
void RestUntil(std::uint32_t time);

// A number that differs from one moment to the next, to seed a game from.
std::uint64_t SystemClockSeed();

// Date and time of the place, "2026-11-23 10:43:46".
std::string LocalDate();
