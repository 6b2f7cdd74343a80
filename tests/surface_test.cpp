// Rectangle copies, sprites and surfaces as the drawing routines rely on them.
#include "toolkit/surface.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>

#include "toolkit/resources.h"
#include "toolkit/text.h"

namespace {

Surface MakeSurface(int width, int height, Color color) {
    Surface surface;
    surface.BackColor = color;
    Resize(surface, width + 2 * kBorder, height + 2 * kBorder);
    return surface;
}

Surface Noise(int width, int height, unsigned seed) {
    Surface surface = MakeSurface(width, height, kBlack);
    std::mt19937 random(seed);
    for (Color& pixel : surface.image) pixel = static_cast<Color>(random()) & 0xFFFFFFu;
    return surface;
}

// The plainest possible transfer, pixel by pixel.
void SlowBlt(Surface& d, int x, int y, int w, int h, const Surface& s, int sx, int sy, RasterOp op) {
    const Surface source = s;
    for (int row = 0; row < h; ++row) {
        for (int column = 0; column < w; ++column) {
            const int fromX = sx + column, fromY = sy + row, toX = x + column, toY = y + row;
            if (fromX < 0 || fromY < 0 || fromX >= source.imageWidth || fromY >= source.imageHeight) continue;
            if (toX < 0 || toY < 0 || toX >= d.imageWidth || toY >= d.imageHeight) continue;
            Color& to = d.Row(toY)[toX];
            const Color from = source.Row(fromY)[fromX];
            to = op == SRCCOPY ? from : op == SRCAND ? to & from : to | from;
        }
    }
}

}  // namespace

TEST(BitBlt, AgreesWithAPlainTransferForAnyPlaceAndSize) {
    std::mt19937 random(1);
    const Surface source = Noise(40, 30, 2), before = Noise(50, 36, 3);
    const auto place = [&](int span) { return static_cast<int>(random() % static_cast<unsigned>(3 * span)) - span; };
    for (int i = 0; i < 20000; ++i) {
        const RasterOp op = std::array{SRCCOPY, SRCAND, SRCPAINT}[random() % 3];
        Surface fast = before, slow = before;
        const int x = place(50), y = place(36), w = place(40), h = place(30), sx = place(40), sy = place(30);
        BitBlt(fast, x, y, w, h, source, sx, sy, op);
        SlowBlt(slow, x, y, w, h, source, sx, sy, op);
        ASSERT_EQ(slow.image, fast.image) << x << ' ' << y << ' ' << w << ' ' << h << ' ' << sx << ' ' << sy;
    }
}

TEST(BitBlt, CopiesWithinOneSurfaceReadBeforeTheyWrite) {
    std::mt19937 random(4);
    for (int i = 0; i < 3000; ++i) {
        const RasterOp op = std::array{SRCCOPY, SRCAND, SRCPAINT}[random() % 3];
        Surface fast = Noise(24, 24, static_cast<unsigned>(random())), slow = fast;
        const auto at = [&] { return static_cast<int>(random() % 40) - 10; };
        const int x = at(), y = at(), w = at(), h = at(), sx = at(), sy = at();
        BitBlt(fast, x, y, w, h, fast, sx, sy, op);
        SlowBlt(slow, x, y, w, h, slow, sx, sy, op);
        ASSERT_EQ(slow.image, fast.image);
    }
}

TEST(BitBlt, ExtremePlacesDrawNothing) {
    Surface d = MakeSurface(8, 8, kBlue);
    const Surface before = d, s = Noise(8, 8, 5);
    constexpr int kMost = std::numeric_limits<int>::max(), kLeast = std::numeric_limits<int>::min();
    for (const int far : {kMost, kLeast, kMost - 3, kLeast + 3}) {
        BitBlt(d, far, 0, 8, 8, s, 0, 0, SRCCOPY);
        BitBlt(d, 0, 0, 8, 8, s, 0, far, SRCCOPY);
        BitBlt(d, far, far, 100, 100, s, far, far, SRCPAINT);
    }
    EXPECT_EQ(before.image, d.image);
}

TEST(BlitSprite, IsMaskThenPaintAlsoWhereTheMaskLeavesTheSheet) {
    std::mt19937 random(6);
    const Surface sheet = Noise(48, 48, 7);
    for (int i = 0; i < 20000; ++i) {
        Surface once = Noise(40, 40, 8), twice = once;
        const auto at = [&](int span) {
            return static_cast<int>(random() % static_cast<unsigned>(2 * span)) - span / 2;
        };
        const int x = at(40), y = at(40), w = at(40), h = at(40);
        const At mask{at(48), at(48)}, sprite{at(48), at(48)};
        BlitSprite(once, x, y, w, h, sheet, mask, sprite);
        SlowBlt(twice, x, y, w, h, sheet, mask.x, mask.y, SRCAND);
        SlowBlt(twice, x, y, w, h, sheet, sprite.x, sprite.y, SRCPAINT);
        ASSERT_EQ(twice.image, once.image);
    }
}

TEST(SetPixelV, SetsWhatLiesInside) {
    Surface surface = MakeSurface(3, 2, kBlack);
    for (const int x : {-1, 0, 2, 3}) {
        for (const int y : {-1, 0, 1, 2}) SetPixelV(surface, x, y, kRed);
    }
    EXPECT_EQ((std::vector<Color>{kRed, kBlack, kRed, kRed, kBlack, kRed}), surface.image);
}

TEST(PrintText, ShowsABoxForACharacterTheFontDoesNotHave) {
    const int height = StatusFont().height, width = StatusFont().missing.width;
    Surface surface = MakeSurface(40, 40, kBlack);
    surface.ForeColor = kRed;
    PrintText(surface, 0, 0, "\uFFFF");
    EXPECT_EQ(2 * width + 2 * (height - 4), std::count(surface.image.begin(), surface.image.end(), kRed));
    for (const int x : {0, width - 1}) EXPECT_EQ(kRed, surface.Row(3)[x]);
    for (const int y : {1, height - 2}) EXPECT_EQ(kRed, surface.Row(y)[width / 2]);
}

TEST(Surface, ShowsItsBackgroundWhereNoPictureCovers) {
    const Picture red{4, 2, std::vector<Color>(8, kRed)};
    Surface surface = MakeSurface(3, 5, kBlue);
    SetPicture(surface, red);
    EXPECT_EQ(4, surface.imageWidth);  // the picture's full size, though the drawing area is narrower
    EXPECT_EQ(5, surface.imageHeight);
    EXPECT_EQ(kRed, surface.Row(1)[3]);
    EXPECT_EQ(kBlue, surface.Row(2)[0]);
    RemovePicture(surface);
    EXPECT_EQ(3, surface.imageWidth);
    EXPECT_EQ(std::vector<Color>(15, kBlue), surface.image);
}

TEST(Surface, APersistentImageKeepsItsOldColourUntilItIsCleared) {
    Surface plain = MakeSurface(2, 2, kBlue), persistent = plain;
    persistent.AutoRedraw = true;
    SetBackColor(plain, kRed);
    SetBackColor(persistent, kRed);
    EXPECT_EQ(std::vector<Color>(4, kRed), plain.image);
    EXPECT_EQ(std::vector<Color>(4, kBlue), persistent.image);
    Cls(persistent);
    EXPECT_EQ(plain.image, persistent.image);
}

TEST(Surface, ResizingKeepsWhatStillFits) {
    Surface surface = Noise(6, 6, 9);
    const Surface before = surface;
    surface.BackColor = kRed;
    Resize(surface, 8 + 2 * kBorder, 4 + 2 * kBorder);
    EXPECT_EQ(before.Row(3)[5], surface.Row(3)[5]);
    EXPECT_EQ(kRed, surface.Row(3)[7]);
}

TEST(FloorToPixel, RoundsDownAndSurvivesAnything) {
    EXPECT_EQ(-33, FloorToPixel(-32.25));
    EXPECT_EQ(335, FloorToPixel(335.9));
    EXPECT_EQ(-1, FloorToPixel(-1e-30));
    EXPECT_GT(-1000000, FloorToPixel(-INFINITY));
    EXPECT_LT(1000000, FloorToPixel(3e38));
    EXPECT_GT(-1000000, FloorToPixel(NAN));
}

TEST(Pictures, EveryBuiltInPictureHasItsExactSize) {
    struct Size {
        int number, width, height;
    };
    for (const auto& [number, width, height] : {Size{101, 320, 480},
                                                {102, 320, 480},
                                                {103, 320, 480},
                                                {150, 768, 128},
                                                {200, 210, 300},
                                                {201, 160, 320},
                                                {202, 600, 400},
                                                {250, 672, 512},
                                                {300, 272, 392}}) {
        EXPECT_EQ(width, LoadResPicture(number).width) << number;
        EXPECT_EQ(height, LoadResPicture(number).height) << number;
    }
    struct Named {
        const char* name;
        int width, height;
    };
    for (const auto& [name, width, height] : {Named{"Chr.bmp", 128, 192},
                                              {"MyShotPic.gif", 16, 32},
                                              {"EneShotPic.gif", 96, 80},
                                              {"BomPic.gif", 192, 32},
                                              {"BomPic64.gif", 384, 64},
                                              {"LogoPic.gif", 195, 46}}) {
        EXPECT_EQ(width, DesignPicture(name).width) << name;
        EXPECT_EQ(height, DesignPicture(name).height) << name;
    }
}

TEST(Pictures, EveryColourComesFromItsOwnPixel) {
    std::vector<std::uint8_t> bmp = {'B', 'M', 62, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0,  40,
                                     0,   0,   0,  2, 0, 0, 0, 1, 0, 0, 0,  1, 0, 24, 0};
    bmp.resize(54);
    bmp.insert(bmp.end(), {1, 2, 3, 4, 5, 6, 0, 0});  // blue, green, red
    std::string reason;
    EXPECT_EQ((std::vector<Color>{0x030201, 0x060504}), DecodePicture(bmp, reason).pixels) << reason;
}

// Broken image files must be refused, not read past their end; the sanitizer builds watch.
TEST(Pictures, DamagedFilesAreRefusedOrDecodedWithoutHarm) {
    std::mt19937 random(10);
    const std::uint8_t noFrame[] = {'G', 'I', 'F', '8', '9', 'a', 4, 0, 4, 0, 0, 0, 0, ';'};
    std::string none;
    EXPECT_TRUE(DecodePicture(noFrame, none).pixels.empty());
    EXPECT_NE("", none);
    const std::uint8_t noWidth[] = {'B', 'M', 0, 0, 0,  0, 0, 0, 0, 0, 54, 4, 0, 0, 40, 0, 0,   0,
                                    0,   0,   0, 0, 38, 0, 0, 0, 1, 0, 8,  0, 0, 0, 0,  0, 196, 14,
                                    0,   0,   0, 0, 0,  0, 0, 0, 0, 0, 0,  0, 0, 0, 0,  0, 0,   0};
    none.clear();
    EXPECT_TRUE(DecodePicture(noWidth, none).pixels.empty());
    EXPECT_NE("", none);
    for (const char* name : {"pictures/300.bmp", "pictures/EneShotPic.gif"}) {
        const auto whole = BuiltInFile(name);
        ASSERT_FALSE(whole.empty());
        for (int i = 0; i < 200; ++i) {
            std::vector<std::uint8_t> bytes(whole.begin(), whole.end());
            bytes.resize(random() % bytes.size());
            for (int damage = 0; damage < 8 && !bytes.empty(); ++damage) {
                bytes[random() % std::min<std::size_t>(bytes.size(), 200)] = static_cast<std::uint8_t>(random());
            }
            std::string reason;
            const Picture picture = DecodePicture(bytes, reason);
            EXPECT_EQ(static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height),
                      picture.pixels.size());
            if (picture.pixels.empty()) EXPECT_FALSE(reason.empty());
        }
    }
}
