#include "state/random.h"

#include <cmath>
#include <optional>

#include "host/clock.h"
#include "state/state.h"

namespace {
std::optional<std::uint64_t> fixedSeed;

// SplitMix64: one 64-bit word of state, every seed good, the same on every machine.
std::uint64_t NextWord() {
    game.RandomState += 0x9E3779B97F4A7C15u;
    std::uint64_t z = game.RandomState;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31);
}
}  // namespace

void Randomize(std::uint64_t seed) {
    game.RandomState = seed;
}

double Rnd() {
    return static_cast<double>(NextWord() >> 40) * 0x1p-24;
}

int RndInt(int span, int first) {
    return static_cast<int>(std::floor(Rnd() * span + first));
}

void FixSeed(std::uint64_t seed) {
    fixedSeed = seed;
}

void UseClockSeed() {
    fixedSeed.reset();
}

std::optional<std::uint64_t> FixedSeed() {
    return fixedSeed;
}

std::uint64_t NextSeed() {
    return fixedSeed ? *fixedSeed : SystemClockSeed();
}
