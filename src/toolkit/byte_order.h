// Numbers in files: little-endian, at their natural width, nothing between them.
#pragma once

#include <bit>
#include <concepts>
#include <cstdint>
#include <span>
#include <type_traits>
#include <vector>

namespace byte_order {
template <typename T>
using Bits =
    std::conditional_t<sizeof(T) == 4, std::uint32_t, std::conditional_t<sizeof(T) == 2, std::uint16_t, std::uint8_t>>;
}

// Reading past the end gives zeros.
class ByteReader {
  public:
    explicit ByteReader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    template <typename T>
    T Get() {
        std::uint32_t bits = 0;
        for (unsigned i = 0; i < sizeof(T); ++i, ++at_) {
            if (at_ < bytes_.size()) bits |= static_cast<std::uint32_t>(bytes_[at_]) << (8 * i);
        }
        return std::bit_cast<T>(static_cast<byte_order::Bits<T>>(bits));
    }

  private:
    std::span<const std::uint8_t> bytes_;
    std::size_t at_ = 0;
};

struct ByteWriter {
    std::vector<std::uint8_t> bytes{};

    template <typename T>
    void Put(T value) {
        const std::uint32_t bits = std::bit_cast<byte_order::Bits<T>>(value);
        for (unsigned i = 0; i < sizeof(T); ++i) bytes.push_back(static_cast<std::uint8_t>(bits >> (8 * i)));
    }
};
