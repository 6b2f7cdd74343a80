#include "host/clock.h"

#include <emscripten.h>

#include <chrono>
#include <ctime>

#include "host/web/page.h"

namespace {

// What is left to turn on the clock: a browser's timers fire late rather than early, by about this much.
constexpr double kWakingUp = 0.3;  // ms

}  // namespace

std::uint32_t timeGetTime() {
    return static_cast<std::uint32_t>(static_cast<std::uint64_t>(emscripten_get_now()));
}

void RestUntil(std::uint32_t time) {
    const double now = emscripten_get_now();
    const auto passed = static_cast<std::uint64_t>(now);
    const auto left = static_cast<std::int32_t>(time - static_cast<std::uint32_t>(passed));
    if (left > 0) web::Give(web::Turn::until, static_cast<double>(passed) + left - kWakingUp);
}

std::uint64_t SystemClockSeed() {
    return static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
}

std::string LocalDate() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char text[sizeof "2026-11-23 10:43:46"] = {};
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &local);
    return text;
}
