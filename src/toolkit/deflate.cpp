#include "toolkit/deflate.h"

#include <memory>

// Copies of its own: the pictures' decoder is set up without this part.
#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_BMP
#define STBI_SUPPORT_ZLIB
#define STBI_NO_STDIO
#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wall"
#pragma GCC diagnostic ignored "-Wextra"
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wshadow"
#pragma GCC diagnostic ignored "-Wsign-conversion"
#pragma GCC diagnostic ignored "-Wunused-function"
#include <stb/stb_image.h>
#include <stb/stb_image_write.h>
#pragma GCC diagnostic pop

namespace {
struct Free {
    void operator()(unsigned char* bytes) const { std::free(bytes); }
};
}  // namespace

std::vector<std::uint8_t> Deflate(std::span<const std::uint8_t> bytes) {
    constexpr int kThorough = 64;  // candidates looked at for each match
    int size = 0;
    std::vector<std::uint8_t> copy(bytes.begin(), bytes.end());  // it is not const-correct
    const std::unique_ptr<unsigned char, Free> packed(
        stbi_zlib_compress(copy.data(), static_cast<int>(copy.size()), &size, kThorough));
    return {packed.get(), packed.get() + size};
}

// The room is not cleared: only what is filled takes memory.
std::optional<std::vector<std::uint8_t>> Inflate(std::span<const std::uint8_t> bytes, std::size_t most) {
    const auto text = std::make_unique_for_overwrite<char[]>(most);
    const int size =
        stbi_zlib_decode_buffer(text.get(), static_cast<int>(most), reinterpret_cast<const char*>(bytes.data()),
                                static_cast<int>(bytes.size()));
    if (size < 0) return std::nullopt;
    return std::vector<std::uint8_t>(text.get(), text.get() + size);
}
