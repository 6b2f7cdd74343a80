// Numbers as text and text as numbers, as text fields and labels use them. The same in every locale: the decimal sign
// is a point.
#pragma once

#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

// General number form, without leading blanks: at most 7 (Single) or 15 (double) significant digits and no trailing
// zeros. Plain decimals from 0.0001 to below 1E+07 (Single) or 1E+15 (double), otherwise with an exponent of at least
// two digits: "1E-05", "1.5E+10". Zero has no sign. What is no number becomes a text that NumberOf refuses.
std::string TextOf(float value);
std::string TextOf(double value);
std::string TextOf(int value);

// The number a text stands for: a sign, digits with or without a point, an exponent after E, e, D or d. Blanks around
// it are ignored; anything else in it, or no digit at all, and it is none. Too large for a double: infinity. Too close
// to zero: 0.
std::optional<double> NumberOf(std::string_view text);

// The nearest whole number, halves to even; none when that lies outside the type's range.
template <typename Whole>
std::optional<Whole> WholeOf(double value) {
    const double nearest = std::nearbyint(value);  // the default rounding mode: halves to even
    const bool fits = nearest >= std::numeric_limits<Whole>::min() && nearest <= std::numeric_limits<Whole>::max();
    if (!fits) return std::nullopt;
    return static_cast<Whole>(nearest);
}

// The nearest Single; none when that would be infinite.
std::optional<float> SingleOf(double value);
