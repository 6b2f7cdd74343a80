// Bytes as text of letters, digits, "-" and "_", without padding: fit for addresses and lines.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

std::string Base64Url(std::span<const std::uint8_t> bytes);

// None when another character is in it.
std::optional<std::vector<std::uint8_t>> FromBase64Url(std::string_view text);
