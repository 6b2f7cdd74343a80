#include "host/clock.h"

#include <sys/prctl.h>
#include <time.h>

#include <cerrno>
#include <chrono>
#include <ctime>

#include "host/desktop/clock_stop.h"

namespace {

auto programStart = std::chrono::steady_clock::now();  // moves on while the clock is stopped

// What is left to turn on the clock: a sleeper is woken this late on a busy machine more often than not.
constexpr auto kWakingUp = std::chrono::microseconds(150);

// The system may bundle wake-ups and is then up to 50 us later than asked.
void WantExactTimers() {
    static const int done = prctl(PR_SET_TIMERSLACK, 1UL);
    static_cast<void>(done);
}

void SleepUntil(std::chrono::steady_clock::time_point moment) {
    using namespace std::chrono;
    const auto whole = time_point_cast<seconds>(moment);
    const timespec at{static_cast<time_t>(whole.time_since_epoch().count()),
                      static_cast<long>(duration_cast<nanoseconds>(moment - whole).count())};
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &at, nullptr) == EINTR) {
    }
}

}  // namespace

desktop::ClockStop::~ClockStop() {
    programStart += std::chrono::steady_clock::now() - start_;
}

std::uint32_t timeGetTime() {
    using namespace std::chrono;
    return static_cast<std::uint32_t>(duration_cast<milliseconds>(steady_clock::now() - programStart).count());
}

void RestUntil(std::uint32_t time) {
    using namespace std::chrono;
    const auto now = steady_clock::now() - programStart;
    const auto passed = static_cast<std::uint32_t>(duration_cast<milliseconds>(now).count());
    const auto left = static_cast<std::int32_t>(time - passed);
    if (left <= 0) return;
    WantExactTimers();
    SleepUntil(programStart + duration_cast<milliseconds>(now) + milliseconds(left) - kWakingUp);
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
