// Compiled with -O3 in every optimised build: the loops below are plain so that the compiler vectorises them.
#include "toolkit/surface.h"

#include <algorithm>
#include <cstring>

// A copy of each rectangle's loops for wider vectors, picked when the program starts. Not under the sanitizers: the
// choice is made before their run-time is ready.
#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__) && defined(__OPTIMIZE__) && \
    !defined(__SANITIZE_ADDRESS__)
#define WIDE_VECTORS __attribute__((target_clones("arch=x86-64-v4", "avx2", "default")))
#else
#define WIDE_VECTORS
#endif

// Before a loop: its rows do not overlap, which restrict says of one pair of pointers only.
#if defined(__GNUC__) && !defined(__clang__)
#define NO_OVERLAP _Pragma("GCC ivdep")
#elif defined(__clang__)
#define NO_OVERLAP _Pragma("clang loop vectorize(assume_safety)")
#else
#define NO_OVERLAP
#endif

namespace {

// Rectangles of pixels whose rows lie `stride` pixels apart.
struct Rows {
    const Color* first;
    std::ptrdiff_t stride;
};

WIDE_VECTORS void AndRows(Color* d, std::ptrdiff_t stride, Rows s, int width, int height) {
    for (; height > 0; --height, d += stride, s.first += s.stride) {
        NO_OVERLAP for (int i = 0; i < width; ++i) d[i] &= s.first[i];
    }
}

WIDE_VECTORS void PaintRows(Color* d, std::ptrdiff_t stride, Rows s, int width, int height) {
    for (; height > 0; --height, d += stride, s.first += s.stride) {
        NO_OVERLAP for (int i = 0; i < width; ++i) d[i] |= s.first[i];
    }
}

WIDE_VECTORS void SpriteRows(Color* d, std::ptrdiff_t stride, Rows mask, Rows image, int width, int height) {
    for (; height > 0; --height, d += stride, mask.first += mask.stride, image.first += image.stride) {
        NO_OVERLAP for (int i = 0; i < width; ++i) d[i] = (d[i] & mask.first[i]) | image.first[i];
    }
}

// A rectangle transfer after clipping. The sums are 64-bit: places come from data and may be anything.
struct Transfer {
    int x, y, width, height, sourceX, sourceY;

    bool operator==(const Transfer&) const = default;
};

// Clips one axis so that both ranges lie inside [0, size) and [0, sourceSize).
void ClipAxis(std::int64_t& at, std::int64_t& length, std::int64_t& sourceAt, int size, int sourceSize) {
    const std::int64_t skip = std::max(std::max(std::int64_t{0}, -at), -sourceAt);
    at += skip;
    sourceAt += skip;
    length = std::min(std::min(length - skip, size - at), sourceSize - sourceAt);
}

// Width or height is 0 or less when nothing is left.
Transfer Clip(const Surface& d, int x, int y, int width, int height, const Surface& s, int sourceX, int sourceY) {
    std::int64_t cx = x, cy = y, cw = width, ch = height, sx = sourceX, sy = sourceY;
    ClipAxis(cx, cw, sx, d.imageWidth, s.imageWidth);
    ClipAxis(cy, ch, sy, d.imageHeight, s.imageHeight);
    if (cw <= 0 || ch <= 0) return {};
    return {static_cast<int>(cx), static_cast<int>(cy), static_cast<int>(cw),
            static_cast<int>(ch), static_cast<int>(sx), static_cast<int>(sy)};
}

void CopyRows(Surface& d, const Surface& s, const Transfer& t) {
    const auto bytes = static_cast<std::size_t>(t.width) * sizeof(Color);
    if (t.width == d.imageWidth && t.width == s.imageWidth) {  // whole rows lie one behind the other
        std::memmove(d.Row(t.y), s.Row(t.sourceY), bytes * static_cast<std::size_t>(t.height));
        return;
    }
    const bool upwards = &d == &s && t.y > t.sourceY;
    for (int i = 0; i < t.height; ++i) {
        const int row = upwards ? t.height - 1 - i : i;
        std::memmove(d.Row(t.y + row) + t.x, s.Row(t.sourceY + row) + t.sourceX, bytes);
    }
}

Rows RowsAt(const Surface& s, int x, int y) {
    return {s.Row(y) + x, s.imageWidth};
}

void CombineRows(Surface& d, const Surface& s, const Transfer& t, RasterOp op) {
    (op == SRCAND ? AndRows : PaintRows)(d.Row(t.y) + t.x, d.imageWidth, RowsAt(s, t.sourceX, t.sourceY), t.width,
                                         t.height);
}

// Gives the image its size, keeping what still fits and filling the rest with the background colour.
void ShapeImage(Surface& surface, int width, int height, bool keep) {
    width = std::max(width, 0);
    height = std::max(height, 0);
    std::vector<Color> image(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), surface.BackColor);
    if (keep) {
        const int rows = std::min(height, surface.imageHeight);
        const int columns = std::min(width, surface.imageWidth);
        for (int y = 0; y < rows; ++y) {
            std::copy_n(surface.Row(y), columns,
                        image.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width));
        }
    }
    surface.image = std::move(image);
    surface.imageWidth = width;
    surface.imageHeight = height;
}

int DrawingWidth(const Surface& surface) {
    return std::max(surface.Width - 2 * kBorder, 0);
}
int DrawingHeight(const Surface& surface) {
    return std::max(surface.Height - 2 * kBorder, 0);
}

}  // namespace

void Resize(Surface& surface, int width, int height) {
    surface.Width = width;
    surface.Height = height;
    const int keepWidth = surface.HasPicture ? surface.imageWidth : 0;
    const int keepHeight = surface.HasPicture ? surface.imageHeight : 0;
    ShapeImage(surface, std::max(DrawingWidth(surface), keepWidth), std::max(DrawingHeight(surface), keepHeight), true);
}

void SetBackColor(Surface& surface, Color color) {
    surface.BackColor = color;
    if (!surface.AutoRedraw && !surface.HasPicture) Cls(surface);
}

void SetPicture(Surface& surface, const Picture& picture) {
    ShapeImage(surface, std::max(DrawingWidth(surface), picture.width),
               std::max(DrawingHeight(surface), picture.height), false);
    for (int y = 0; y < picture.height; ++y) {
        const auto from = static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width);
        std::copy_n(picture.pixels.data() + from, picture.width, surface.Row(y));
    }
    surface.HasPicture = true;
}

void RemovePicture(Surface& surface) {
    surface.HasPicture = false;
    Cls(surface);
}

void Cls(Surface& surface) {
    ShapeImage(surface, DrawingWidth(surface), DrawingHeight(surface), false);
}

void BitBlt(Surface& destination, int x, int y, int width, int height, const Surface& source, int sourceX, int sourceY,
            RasterOp op) {
    const Transfer t = Clip(destination, x, y, width, height, source, sourceX, sourceY);
    if (t.width <= 0) return;
    if (op == SRCCOPY) {
        CopyRows(destination, source, t);
    } else if (&destination == &source) {
        const Surface before = source;  // NOLINT(performance-unnecessary-copy-initialization): rows that overlap must
                                        // be read before they are written
        CombineRows(destination, before, t, op);
    } else {
        CombineRows(destination, source, t, op);
    }
}

void BlitSprite(Surface& destination, int x, int y, int width, int height, const Surface& sheet, At mask, At sprite) {
    const Transfer m = Clip(destination, x, y, width, height, sheet, mask.x, mask.y);
    const Transfer s = Clip(destination, x, y, width, height, sheet, sprite.x, sprite.y);
    const bool sameShape = m.x == s.x && m.y == s.y && m.width == s.width && m.height == s.height;
    if (!sameShape) {
        BitBlt(destination, x, y, width, height, sheet, mask.x, mask.y, SRCAND);
        BitBlt(destination, x, y, width, height, sheet, sprite.x, sprite.y, SRCPAINT);
        return;
    }
    if (s.width <= 0) return;
    SpriteRows(destination.Row(s.y) + s.x, destination.imageWidth, RowsAt(sheet, m.sourceX, m.sourceY),
               RowsAt(sheet, s.sourceX, s.sourceY), s.width, s.height);
}

void SetPixelV(Surface& surface, int x, int y, Color color) {
    if (x < 0 || y < 0 || x >= surface.imageWidth || y >= surface.imageHeight) return;
    surface.Row(y)[x] = color;
}
