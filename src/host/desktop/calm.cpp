#include "host/desktop/calm.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace desktop {

namespace {

constexpr unsigned kWhole = 256;  // weight of the wanted picture where nothing of the shown one is left

// The light of a channel's values, from none to all.
const std::array<float, 256>& LightTable() {
    static const auto table = [] {
        std::array<float, 256> light{};
        for (std::size_t i = 0; i < light.size(); ++i) {
            const double level = static_cast<double>(i) / 255;
            light[i] = static_cast<float>(level <= 0.04045 ? level / 12.92 : std::pow((level + 0.055) / 1.055, 2.4));
        }
        return light;
    }();
    return table;
}

struct Channels {
    unsigned red, green, blue;
};
Channels Split(std::uint32_t pixel) {
    return {pixel >> 16 & 0xFFu, pixel >> 8 & 0xFFu, pixel & 0xFFu};
}

}  // namespace

PicturePixels CalmPicture::Pixels() const {
    return {shown_.data(), width_, height_, width_};
}

std::uint32_t CalmPicture::Mixed(std::uint32_t shown, std::uint32_t wanted, unsigned weight) const {
    const Channels a = Split(shown), b = Split(wanted);
    const auto mix = [weight](unsigned from, unsigned to) { return (from * (kWhole - weight) + to * weight) / kWhole; };
    return mix(a.red, b.red) << 16 | mix(a.green, b.green) << 8 | mix(a.blue, b.blue);
}

// Of the mixture; one pixel of 64 is enough.
CalmPicture::Brightness CalmPicture::BrightnessAt(const PicturePixels& picture, unsigned weight) const {
    constexpr int kStep = 8;
    const auto& light = LightTable();
    Brightness sum;
    int count = 0;
    for (int y = 0; y < height_; y += kStep) {
        const std::uint32_t* wanted = picture.Row(y);
        const std::uint32_t* shown = Pixels().Row(y);
        for (int x = y / kStep % kStep; x < width_; x += kStep, ++count) {
            const Channels pixel = Split(Mixed(shown[x], wanted[x], weight));
            sum.light += 0.2126 * light[pixel.red] + 0.7152 * light[pixel.green] + 0.0722 * light[pixel.blue];
            sum.felt += (0.299 * pixel.red + 0.587 * pixel.green + 0.114 * pixel.blue) / 255;
        }
    }
    return {sum.light / count, sum.felt / count};
}

// A flash is a rise and fall of a tenth. What two pictures in a row can do stays below it: the screen is red for two.
bool CalmPicture::IsCalm(const Brightness& next) const {
    constexpr double kLargestStep = 0.048;
    return std::abs(next.light - brightness_.light) <= kLargestStep &&
           std::abs(next.felt - brightness_.felt) <= kLargestStep;
}

unsigned CalmPicture::LargestCalmWeight(const PicturePixels& picture) const {
    if (IsCalm(BrightnessAt(picture, kWhole))) return kWhole;
    unsigned calm = 0, tooMuch = kWhole;
    while (tooMuch - calm > 1) {
        const unsigned weight = (calm + tooMuch) / 2;
        (IsCalm(BrightnessAt(picture, weight)) ? calm : tooMuch) = weight;
    }
    return std::max(1u, calm);
}

void CalmPicture::Follow(const PicturePixels& picture) {
    const auto pixels = static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
    const bool first = picture.width != width_ || picture.height != height_;
    width_ = picture.width, height_ = picture.height;
    shown_.resize(pixels);
    const unsigned weight = first ? kWhole : LargestCalmWeight(picture);
    arrived_ = weight == kWhole;
    for (int y = 0; y < height_; ++y) {
        const std::uint32_t* wanted = picture.Row(y);
        std::uint32_t* shown = shown_.data() + static_cast<std::ptrdiff_t>(y) * width_;
        if (arrived_) {
            std::copy_n(wanted, width_, shown);
        } else {
            std::transform(shown, shown + width_, wanted, shown,
                           [&](std::uint32_t from, std::uint32_t to) { return Mixed(from, to, weight); });
        }
    }
    brightness_ = BrightnessAt(picture, arrived_ ? kWhole : 0);
}

}  // namespace desktop
