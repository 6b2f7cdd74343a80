// Picture surfaces and the three ways to combine a rectangle with what lies under it. The whole raster of the game is
// here: the desktop only shows the finished picture, so a frame is the same, byte for byte, with and without a screen.
#pragma once

#include <cstdint>
#include <vector>

// 0x00RRGGBB. The top byte of a pixel is always 0.
using Color = std::uint32_t;
constexpr Color RGB(int red, int green, int blue) {
    return static_cast<Color>(red) << 16 | static_cast<Color>(green) << 8 | static_cast<Color>(blue);
}
inline constexpr Color kBlack = RGB(0, 0, 0);
inline constexpr Color kWhite = RGB(255, 255, 255);
inline constexpr Color kRed = RGB(255, 0, 0);
inline constexpr Color kBlue = RGB(0, 0, 255);
inline constexpr Color kButtonFace = RGB(192, 192, 192);  // a control's default background

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<Color> pixels;  // rows from the top, width * height
};

struct Font;  // text.h

// Every surface has a sunken border; its drawing area is 2 * kBorder smaller than its outer size.
inline constexpr int kBorder = 2;

// One picture surface. Its image starts at (0, 0) of the drawing area and is as large as the drawing area or its
// picture, whichever is larger; what no picture covers shows the background colour.
struct Surface {
    int Width = 0;  // outer size in pixels, border included
    int Height = 0;
    bool Visible = false;
    bool AutoRedraw = false;  // persistent image: a new background colour shows only at the next Cls
    bool HasPicture = false;
    Color BackColor = kButtonFace;
    Color ForeColor = kBlack;
    const Font* TextFont = nullptr;  // null: the status font

    int imageWidth = 0;
    int imageHeight = 0;
    std::vector<Color> image;

    Color* Row(int y) { return image.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(imageWidth); }
    const Color* Row(int y) const {
        return image.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(imageWidth);
    }
};

// Sets the outer size. What is drawn or shown stays where it still fits; new area gets the background colour.
void Resize(Surface& surface, int width, int height);

// Without a persistent image the surface shows the new colour at once; with one, only after Cls.
void SetBackColor(Surface& surface, Color color);

// Puts `picture` at (0, 0) over the whole of what was there. The outer size stays; the image grows with the picture.
void SetPicture(Surface& surface, const Picture& picture);

// Removes the picture: the drawing area in the background colour.
void RemovePicture(Surface& surface);

// Clears everything drawn: the drawing area in the background colour. For surfaces without a picture.
void Cls(Surface& surface);

enum RasterOp : std::uint32_t {
    SRCCOPY = 0x00CC0020,   // the source replaces the destination
    SRCAND = 0x008800C6,    // destination AND source: the mask of a sprite
    SRCPAINT = 0x00EE0086,  // destination OR source: the sprite itself, and paint-only images
};

// Combines the width x height rectangle at (sourceX, sourceY) of `source` with that at (x, y) of `destination`. Both
// rectangles are clipped to the images: what lies outside the source is not drawn. Sizes of 0 and less draw nothing.
// Source and destination may be one surface and overlap.
void BitBlt(Surface& destination, int x, int y, int width, int height, const Surface& source, int sourceX, int sourceY,
            RasterOp op);

struct At {
    int x;
    int y;
};

// A sprite with a mask: BitBlt of the mask with SRCAND, then of the image with SRCPAINT, to the same place; in one pass
// over each row where both lie inside their sheet. The sheet is another surface than the destination.
void BlitSprite(Surface& destination, int x, int y, int width, int height, const Surface& sheet, At mask, At sprite);

// Sets one pixel; outside the image nothing happens.
void SetPixelV(Surface& surface, int x, int y, Color color);

// ⌊value⌋ as a pixel place. Values no surface reaches, and NaN, become places far outside every surface.
inline int FloorToPixel(double value) {
    constexpr double kFar = 1 << 30;
    if (!(value > -kFar)) return -(1 << 30);
    if (value > kFar) return 1 << 30;
    const int whole = static_cast<int>(value);  // towards 0
    return whole - (value < whole);
}
