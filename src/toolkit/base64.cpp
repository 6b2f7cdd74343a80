#include "toolkit/base64.h"

namespace {

constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";

}  // namespace

std::string Base64Url(std::span<const std::uint8_t> bytes) {
    std::string text;
    unsigned bits = 0, word = 0;
    for (const std::uint8_t byte : bytes) {
        word = word << 8 | byte;
        for (bits += 8; bits >= 6; bits -= 6) text += kDigits[word >> (bits - 6) & 0x3F];
    }
    if (bits > 0) text += kDigits[word << (6 - bits) & 0x3F];
    return text;
}

std::optional<std::vector<std::uint8_t>> FromBase64Url(std::string_view text) {
    std::vector<std::uint8_t> bytes;
    unsigned bits = 0, word = 0;
    for (const char digit : text) {
        const auto value = kDigits.find(digit);
        if (value == std::string_view::npos) return std::nullopt;
        word = word << 6 | static_cast<unsigned>(value);
        if ((bits += 6) < 8) continue;
        bits -= 8;
        bytes.push_back(static_cast<std::uint8_t>(word >> bits));
    }
    return bytes;
}
