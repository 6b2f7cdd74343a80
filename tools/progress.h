// How far a long run is, on standard error when that is a terminal.
#pragma once

#include <chrono>
#include <cstdint>

class Progress {
  public:
    // `wanted` false: nothing is shown in any case.
    Progress(std::uint64_t steps, bool wanted);
    void Step();

    // Takes the bar away, so that something else can be printed.
    void Clear() const;

  private:
    using Clock = std::chrono::steady_clock;

    void Draw(double seconds) const;

    std::uint64_t steps_;
    std::uint64_t done_ = 0;
    bool shown_;
    Clock::time_point start_ = Clock::now();
    Clock::time_point next_ = start_;
};
