// What a joystick driver does to an axis before a program reads it.
#pragma once

#include <cstdint>

namespace desktop {

inline constexpr std::uint32_t kAxisMin = 0;
inline constexpr std::uint32_t kAxisRest = 32767;
inline constexpr std::uint32_t kAxisMax = 65535;

// From a raw reading (-32768..32767, 0 in the middle) to 0..65535. About 15 % either side of the middle read exactly
// kAxisRest: the game takes any difference from the rest position for a direction, and no real stick rests without
// trembling. Outside that zone the reading is stretched, so that it starts at the middle and still reaches the ends.
constexpr std::uint32_t CalibratedAxis(int raw) {
    constexpr int kNeutral = 32768 * 15 / 100;
    if (raw >= -kNeutral && raw <= kNeutral) return kAxisRest;
    const int rest = static_cast<int>(kAxisRest);
    if (raw < 0) return static_cast<std::uint32_t>(rest - (-raw - kNeutral) * rest / (32768 - kNeutral));
    return static_cast<std::uint32_t>(rest + (raw - kNeutral) * (rest + 1) / (32767 - kNeutral));
}

static_assert(CalibratedAxis(-32768) == kAxisMin && CalibratedAxis(0) == kAxisRest &&
              CalibratedAxis(32767) == kAxisMax);

}  // namespace desktop
