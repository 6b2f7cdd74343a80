#include "host/clock.h"

#include <chrono>

namespace {
const auto programStart = std::chrono::steady_clock::now();
}

std::uint32_t timeGetTime() {
    using namespace std::chrono;
    return static_cast<std::uint32_t>(duration_cast<milliseconds>(steady_clock::now() - programStart).count());
}

std::uint64_t SystemClockSeed() {
    return static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
}
