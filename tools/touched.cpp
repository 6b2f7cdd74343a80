#include "touched.h"

#include <algorithm>

namespace {

std::vector<Touched>* list = nullptr;  // while a frame is watched

// Leaves what is inside the screen and the sheet.
void Note(const Surface& screen, Touched t) {
    const int left = std::max({0, -t.x, -t.image.x}), top = std::max({0, -t.y, -t.image.y});
    t.width -= left, t.height -= top;
    t.x += left, t.y += top, t.image.x += left, t.image.y += top, t.mask.x += left, t.mask.y += top;
    t.width = std::min({t.width, screen.imageWidth - t.x, t.from->imageWidth - t.image.x});
    t.height = std::min({t.height, screen.imageHeight - t.y, t.from->imageHeight - t.image.y});
    if (t.width > 0 && t.height > 0) list->push_back(t);
}

Draw DrawOf(RasterOp op) {
    return op == SRCCOPY ? Draw::copy : op == SRCAND ? Draw::mask : Draw::paint;
}

}  // namespace

// The linker's names: __wrap_ and __real_ before those of BitBlt, BlitSprite and SetPixelV.
extern "C" {
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming)
void __real__Z6BitBltR7SurfaceiiiiRKS_ii8RasterOp(Surface&, int, int, int, int, const Surface&, int, int, RasterOp);
void __real__Z10BlitSpriteR7SurfaceiiiiRKS_2AtS3_(Surface&, int, int, int, int, const Surface&, At, At);
void __real__Z9SetPixelVR7Surfaceiij(Surface&, int, int, Color);

void __wrap__Z6BitBltR7SurfaceiiiiRKS_ii8RasterOp(Surface& to, int x, int y, int width, int height, const Surface& from,
                                                  int fromX, int fromY, RasterOp op) {
    if (list) Note(to, {DrawOf(op), x, y, width, height, &from, {fromX, fromY}, {}, 0});
    __real__Z6BitBltR7SurfaceiiiiRKS_ii8RasterOp(to, x, y, width, height, from, fromX, fromY, op);
}

void __wrap__Z10BlitSpriteR7SurfaceiiiiRKS_2AtS3_(Surface& to, int x, int y, int width, int height,
                                                  const Surface& sheet, At mask, At sprite) {
    if (list) Note(to, {Draw::sprite, x, y, width, height, &sheet, sprite, mask, 0});
    __real__Z10BlitSpriteR7SurfaceiiiiRKS_2AtS3_(to, x, y, width, height, sheet, mask, sprite);
}

void __wrap__Z9SetPixelVR7Surfaceiij(Surface& to, int x, int y, Color color) {
    if (list) list->push_back({Draw::pixel, x, y, 1, 1, nullptr, {}, {}, color});
    __real__Z9SetPixelVR7Surfaceiij(to, x, y, color);
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)
}

std::vector<Touched> WhatIsDrawn(void (*work)()) {
    std::vector<Touched> drawn;
    list = &drawn;
    work();
    list = nullptr;
    return drawn;
}
