// Random numbers of play. Nothing that is only for show may draw from here: a game is given by its seed.
#pragma once

#include <cstdint>
#include <optional>

// Starts the sequence `seed`. GameLoop calls it once per game, before LoadStage.
void Randomize(std::uint64_t seed);

// Uniform in [0, 1), in steps of 2^-24, so that a draw is exact as a Single too and never rounds up to 1.
double Rnd();

// The whole number ⌊Rnd × span + first⌋. Computed in double precision: with a Single the sum could round up past the
// last value.
int RndInt(int span, int first = 0);

// Makes the next games start from `seed` instead of the clock (--seed, replays, tests).
void FixSeed(std::uint64_t seed);
void UseClockSeed();
std::optional<std::uint64_t> FixedSeed();

// The seed for the game that is about to start: the fixed one, else from the clock.
std::uint64_t NextSeed();
