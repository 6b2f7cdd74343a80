// The game's clock stands still for as long as this lives, and goes on from there.
#pragma once

#include <chrono>

namespace desktop {

class ClockStop {
  public:
    ClockStop() = default;
    ~ClockStop();
    ClockStop(const ClockStop&) = delete;
    ClockStop& operator=(const ClockStop&) = delete;

  private:
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace desktop
