// Conversions to whole numbers: to the nearest, halves to even. Values outside the type's range become its nearest
// bound, NaN becomes 0: numbers come from data files.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

template <typename Whole>
Whole RoundTo(double value) {
    constexpr double kLowest = std::numeric_limits<Whole>::min();
    constexpr double kHighest = std::numeric_limits<Whole>::max();
    if (std::isnan(value)) return 0;
    const double nearest = std::nearbyint(value);  // the default rounding mode: halves to even
    if (nearest <= kLowest) return std::numeric_limits<Whole>::min();
    if (nearest >= kHighest) return std::numeric_limits<Whole>::max();
    return static_cast<Whole>(nearest);
}
