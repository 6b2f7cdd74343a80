#include "toolkit/numbers.h"

#include <algorithm>
#include <charconv>

namespace {

constexpr int kSingleDigits = 7;
constexpr int kDoubleDigits = 15;

// No field holds more. The bound also tells overflow from underflow: digits alone, so few, cannot leave the range of a
// double, so the exponent has, on the side of its sign.
constexpr std::size_t kLongestNumber = 255;

std::string GeneralForm(double value, int digits) {
    if (value == 0) value = 0;  // drops the sign of -0
    char text[32];
    const auto [end, error] = std::to_chars(text, text + sizeof text, value, std::chars_format::general, digits);
    std::replace(text, end, 'e', 'E');
    return {text, end};
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string_view WithoutBlanks(std::string_view text) {
    constexpr std::string_view kBlanks = " \t";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// `text` without its sign.
std::optional<double> MagnitudeOf(std::string text) {
    const bool startsAsNumber = !text.empty() && (IsDigit(text.front()) || text.front() == '.');
    if (!startsAsNumber) return std::nullopt;  // a second sign, "inf", "nan"
    for (char& c : text) {
        if (c == 'E' || c == 'D' || c == 'd') c = 'e';
    }
    double value = 0;
    const char* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, value);
    if (error == std::errc::invalid_argument || end != last) return std::nullopt;
    if (error == std::errc::result_out_of_range) {
        return text.find("e-") != std::string::npos ? 0 : std::numeric_limits<double>::infinity();
    }
    return value;
}

}  // namespace

std::string TextOf(float value) {
    return GeneralForm(value, kSingleDigits);
}
std::string TextOf(double value) {
    return GeneralForm(value, kDoubleDigits);
}
std::string TextOf(int value) {
    return std::to_string(value);
}

std::optional<double> NumberOf(std::string_view text) {
    text = WithoutBlanks(text);
    if (text.empty() || text.size() > kLongestNumber) return std::nullopt;
    const bool negative = text.front() == '-';
    if (negative || text.front() == '+') text.remove_prefix(1);
    std::optional<double> value = MagnitudeOf(std::string(text));
    if (value && negative) value = -*value;
    return value;
}

std::optional<float> SingleOf(double value) {
    // Half a step above the largest Single; from there on the nearest is infinity.
    constexpr double kTooLarge = 0x1.ffffffp+127;
    if (!(std::abs(value) < kTooLarge)) return std::nullopt;
    return static_cast<float>(value);
}
