// From the game's pixels to the screen's: whole multiples with square pixels, or any size without shimmer.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace desktop {

// A picture of 32-bit pixels somewhere in memory; `stride` is the distance of two rows, in pixels.
template <typename Pixel>
struct Pixels {
    Pixel* first = nullptr;
    int width = 0;
    int height = 0;
    int stride = 0;

    Pixel* Row(int y) const { return first + static_cast<std::ptrdiff_t>(y) * stride; }
};
using PicturePixels = Pixels<const std::uint32_t>;  // 0x00RRGGBB
using ScreenPixels = Pixels<std::uint32_t>;         // written as 0xFFRRGGBB: opaque wherever the screen has an alpha

// A rectangle of the screen, in its pixels.
struct Box {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool operator==(const Box&) const = default;
};

// Where a picture of width x height is seen in `area`: in the middle, at the largest whole multiple that fits (at least
// 1, so it may stick out), or, with `fit`, as large as its proportions allow.
Box PlacePicture(int width, int height, const Box& area, bool fit);

// Draws the picture to `box` of the screen; what lies outside the screen is left out. A box that is a whole multiple of
// the picture in both directions shows every pixel as a square. In any other only the pixels on the edge of two are
// mixed.
class Scaler {
  public:
    void Draw(const PicturePixels& picture, const ScreenPixels& screen, const Box& box);

  private:
    // What one column or row of the box shows: a mixture of two of the picture's.
    struct Mixture {
        int first;
        int second;
        unsigned weight;  // of the second, 0..255 of 256
    };
    void DrawWhole(const PicturePixels& picture, const ScreenPixels& screen, const Box& box, int times);
    void DrawMixed(const PicturePixels& picture, const ScreenPixels& screen, const Box& box);
    const std::vector<std::uint32_t>& StretchedRow(const PicturePixels& picture, int row);
    static std::vector<Mixture> Mix(int from, int to);

    std::vector<Mixture> columns_, rows_;  // for the last box that was no whole multiple
    int fromWidth_ = 0, fromHeight_ = 0;
    struct Stretched {
        int row = -1;
        std::vector<std::uint32_t> pixels;
    };
    std::array<Stretched, 2> stretched_;  // even and odd rows of the picture, as wide as the box
    std::vector<std::uint32_t> line_;
};

}  // namespace desktop
