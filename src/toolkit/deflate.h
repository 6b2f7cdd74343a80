// Compression in the zlib format.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

std::vector<std::uint8_t> Deflate(std::span<const std::uint8_t> bytes);

// None when the bytes are not such a stream or hold more than `most` bytes. Takes no more memory than that.
std::optional<std::vector<std::uint8_t>> Inflate(std::span<const std::uint8_t> bytes, std::size_t most);
