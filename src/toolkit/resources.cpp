#include "toolkit/resources.h"

#include <map>

#include "host/files.h"

#define STB_IMAGE_IMPLEMENTATION
#define STBI_ONLY_BMP
#define STBI_ONLY_GIF
#define STBI_NO_STDIO
#define STBI_MAX_DIMENSIONS 4096
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wall"
#pragma GCC diagnostic ignored "-Wextra"
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wshadow"
#pragma GCC diagnostic ignored "-Wsign-conversion"
#include <stb/stb_image.h>
#pragma GCC diagnostic pop

namespace {

// The list is written by the build, one entry per file under assets/pictures and assets/fonts.
struct Entry {
    const char* name;
    const std::uint8_t* begin;
    const std::uint8_t* end;
};
#include "built_in_files.inc"

const Picture& CachedPicture(const std::string& name) {
    static std::map<std::string, Picture> cache;
    const auto known = cache.find(name);
    if (known != cache.end()) return known->second;
    std::string reason = "it is not part of this build";
    Picture picture;
    const auto bytes = BuiltInFile(name);
    if (!bytes.empty()) picture = DecodePicture(bytes, reason);
    if (picture.pixels.empty()) LogLine("picture " + name + ": " + reason);
    return cache.emplace(name, std::move(picture)).first->second;
}

}  // namespace

std::span<const std::uint8_t> BuiltInFile(std::string_view name) {
    for (const Entry& entry : kBuiltInFiles) {
        if (name == entry.name) return {entry.begin, entry.end};
    }
    return {};
}

std::vector<std::string_view> BuiltInNames(std::string_view start) {
    std::vector<std::string_view> names;
    for (const Entry& entry : kBuiltInFiles) {
        if (std::string_view(entry.name).starts_with(start)) names.emplace_back(entry.name);
    }
    std::erase(names, "");
    return names;
}

Picture DecodePicture(std::span<const std::uint8_t> bytes, std::string& reason) {
    constexpr std::size_t kLargestFile = 64u << 20;
    if (bytes.size() > kLargestFile) {
        reason = "too large";
        return {};
    }
    int width = 0, height = 0, channels = 0;
    stbi_uc* rgb = stbi_load_from_memory(bytes.data(), static_cast<int>(bytes.size()), &width, &height, &channels, 3);
    if (!rgb) {
        const char* why = stbi_failure_reason();  // null for a file that ends before its first picture
        reason = why && *why ? why : "no picture in it";
        return {};
    }
    if (width == 0 || height == 0) {
        stbi_image_free(rgb);
        reason = "no pixels in it";
        return {};
    }
    Picture picture{width, height, {}};
    const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    picture.pixels.resize(count);
    for (std::size_t i = 0; i < count; ++i) picture.pixels[i] = RGB(rgb[3 * i], rgb[3 * i + 1], rgb[3 * i + 2]);
    stbi_image_free(rgb);
    return picture;
}

const Picture& LoadResPicture(int number) {
    return CachedPicture("pictures/" + std::to_string(number) + ".bmp");
}

const Picture& DesignPicture(std::string_view fileName) {
    return CachedPicture("pictures/" + std::string(fileName));
}
