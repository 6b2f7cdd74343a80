#include "host/desktop/scaling.h"

#include <algorithm>
#include <cstring>

namespace desktop {

namespace {

constexpr std::uint32_t kOpaque = 0xFF000000u;

template <int times>
void Repeat(const std::uint32_t* from, int count, std::uint32_t* to) {
    for (int x = 0; x < count; ++x) {
        for (int i = 0; i < times; ++i) to[x * times + i] = from[x] | kOpaque;
    }
}

// The common multiples have loops of their own, which the compiler unrolls.
void RepeatPixels(const std::uint32_t* from, int count, int times, std::uint32_t* to) {
    switch (times) {
        case 1:
            return Repeat<1>(from, count, to);
        case 2:
            return Repeat<2>(from, count, to);
        case 3:
            return Repeat<3>(from, count, to);
        case 4:
            return Repeat<4>(from, count, to);
        default:
            for (int x = 0; x < count; ++x) to = std::fill_n(to, times, from[x] | kOpaque);
    }
}

// Two channels at a time; the weight is that of `b`, of 256.
std::uint32_t MixPixels(std::uint32_t a, std::uint32_t b, unsigned weight) {
    constexpr std::uint32_t kRedBlue = 0x00FF00FFu, kGreen = 0x0000FF00u, kHalf = 0x00800080u, kGreenHalf = 0x8000u;
    const unsigned rest = 256 - weight;
    const std::uint32_t redBlue = (((a & kRedBlue) * rest + (b & kRedBlue) * weight + kHalf) >> 8) & kRedBlue;
    const std::uint32_t green = ((a & kGreen) * rest + (b & kGreen) * weight + kGreenHalf) >> 8 & kGreen;
    return kOpaque | redBlue | green;
}

// The part of a run of `length` that begins at `start` which lies in 0..`limit`.
struct Run {
    int begin;
    int end;  // both counted from the run's own start
};
Run Visible(int start, int length, int limit) {
    return {std::clamp(-start, 0, length), std::clamp(limit - start, 0, length)};
}

}  // namespace

Box PlacePicture(int width, int height, const Box& area, bool fit) {
    Box box;
    if (fit) {
        const bool narrow = area.width * height < area.height * width;  // the width is what limits
        box.width = narrow ? area.width : area.height * width / height;
        box.height = narrow ? area.width * height / width : area.height;
    } else {
        const int times = std::max(1, std::min(area.width / width, area.height / height));
        box.width = times * width;
        box.height = times * height;
    }
    box.x = area.x + (area.width - box.width) / 2;
    box.y = area.y + (area.height - box.height) / 2;
    return box;
}

void Scaler::Draw(const PicturePixels& picture, const ScreenPixels& screen, const Box& box) {
    if (picture.width <= 0 || picture.height <= 0 || box.width <= 0 || box.height <= 0) return;
    const int times = box.width / picture.width;
    const bool whole = times * picture.width == box.width && times * picture.height == box.height;
    if (whole) {
        DrawWhole(picture, screen, box, times);
    } else {
        DrawMixed(picture, screen, box);
    }
}

// A row is built once, straight on the screen if all of it is seen, and copied to the rows below that show the same.
void Scaler::DrawWhole(const PicturePixels& picture, const ScreenPixels& screen, const Box& box, int times) {
    const Run across = Visible(box.x, box.width, screen.width), down = Visible(box.y, box.height, screen.height);
    if (across.begin == across.end) return;
    const bool allSeen = across.begin == 0 && across.end == box.width;
    if (!allSeen) line_.resize(static_cast<std::size_t>(box.width));
    const auto bytes = static_cast<std::size_t>(across.end - across.begin) * sizeof(std::uint32_t);
    const std::uint32_t* built = nullptr;
    for (int y = down.begin, builtRow = -1; y < down.end; ++y) {
        std::uint32_t* to = screen.Row(box.y + y) + box.x + across.begin;
        if (const int row = y / times; row != builtRow) {
            std::uint32_t* line = allSeen ? to : line_.data();
            RepeatPixels(picture.Row(row), picture.width, times, line);
            built = line + across.begin;
            builtRow = row;
        }
        if (to != built) std::memcpy(to, built, bytes);
    }
}

// A pixel of the box covers a piece of the picture, as if that were first scaled up to a common multiple and then down:
// one pixel of it, or the edge between two. So all of the picture's pixels are equally bright wherever they lie.
std::vector<Scaler::Mixture> Scaler::Mix(int from, int to) {
    std::vector<Mixture> mixtures;
    for (int i = 0; i < to; ++i) {
        const auto begin = static_cast<std::int64_t>(i) * from, end = begin + from;  // in pixels of the picture / to
        const auto first = static_cast<int>(begin / to);
        const std::int64_t beyond = end - static_cast<std::int64_t>(first + 1) * to;
        const bool edge = beyond > 0 && first + 1 < from;
        mixtures.push_back({first, edge ? first + 1 : first, edge ? static_cast<unsigned>(beyond * 256 / from) : 0});
    }
    return mixtures;
}

const std::vector<std::uint32_t>& Scaler::StretchedRow(const PicturePixels& picture, int row) {
    Stretched& stretched = stretched_[static_cast<std::size_t>(row % 2)];
    if (stretched.row == row) return stretched.pixels;
    stretched.row = row;
    stretched.pixels.resize(columns_.size());
    const std::uint32_t* from = picture.Row(row);
    std::ranges::transform(columns_, stretched.pixels.begin(), [from](const Mixture& mixture) {
        return mixture.weight == 0 ? from[mixture.first] | kOpaque
                                   : MixPixels(from[mixture.first], from[mixture.second], mixture.weight);
    });
    return stretched.pixels;
}

void Scaler::DrawMixed(const PicturePixels& picture, const ScreenPixels& screen, const Box& box) {
    const auto width = static_cast<std::size_t>(box.width), height = static_cast<std::size_t>(box.height);
    if (columns_.size() != width || fromWidth_ != picture.width) columns_ = Mix(picture.width, box.width);
    if (rows_.size() != height || fromHeight_ != picture.height) rows_ = Mix(picture.height, box.height);
    fromWidth_ = picture.width, fromHeight_ = picture.height;
    for (Stretched& stretched : stretched_) stretched.row = -1;
    const Run across = Visible(box.x, box.width, screen.width), down = Visible(box.y, box.height, screen.height);
    for (int y = down.begin; y < down.end; ++y) {
        const Mixture& mixture = rows_[static_cast<std::size_t>(y)];
        const std::uint32_t* first = StretchedRow(picture, mixture.first).data();
        const std::uint32_t* second = mixture.weight == 0 ? first : StretchedRow(picture, mixture.second).data();
        std::uint32_t* to = screen.Row(box.y + y) + box.x;
        for (int x = across.begin; x < across.end; ++x) {
            to[x] = first == second ? first[x] : MixPixels(first[x], second[x], mixture.weight);
        }
    }
}

}  // namespace desktop
