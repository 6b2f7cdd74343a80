// From the game's picture to the screen's pixels: scaling, what has changed, softer flashes.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "host/desktop/calm.h"
#include "host/desktop/change_watch.h"
#include "host/desktop/scaling.h"
#include "host/desktop/showing.h"

using desktop::Box;
using desktop::PicturePixels;
using desktop::PlacePicture;
using desktop::ScreenPixels;

namespace {

constexpr std::uint32_t kOpaque = 0xFF000000u, kUntouched = 0x12345678u;

struct Image {
    Image(int w, int h, std::uint32_t color = 0)
        : width(w), height(h), pixels(static_cast<std::size_t>(w) * static_cast<std::size_t>(h), color) {}
    std::uint32_t& At(int x, int y) {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)];
    }
    operator PicturePixels() const { return {pixels.data(), width, height, width}; }
    operator ScreenPixels() { return {pixels.data(), width, height, width}; }

    int width, height;
    std::vector<std::uint32_t> pixels;
};

Image Noise(int width, int height) {
    Image image(width, height);
    std::mt19937 random(1);
    for (auto& pixel : image.pixels) pixel = static_cast<std::uint32_t>(random() & 0xFFFFFFu);
    return image;
}

TEST(ScalerTest, AtWholeMultiplesEveryPixelIsASquareAndNothingElseIsTouched) {
    Image picture = Noise(20, 30);
    for (int times = 1; times <= 6; ++times) {
        for (const Box at : {Box{3, 5}, Box{-7, -4}, Box{60, 90}}) {
            Image screen(110, 160, kUntouched);
            desktop::Scaler().Draw(picture, screen, {at.x, at.y, 20 * times, 30 * times});
            for (int y = 0; y < screen.height; ++y) {
                for (int x = 0; x < screen.width; ++x) {
                    const int fromX = x - at.x, fromY = y - at.y;
                    const bool inside = fromX >= 0 && fromY >= 0 && fromX < 20 * times && fromY < 30 * times;
                    const auto expected = inside ? picture.At(fromX / times, fromY / times) | kOpaque : kUntouched;
                    ASSERT_EQ(expected, screen.At(x, y)) << times << " times, at " << x << ", " << y;
                }
            }
        }
    }
}

// A row that is brighter at one place than at another shimmers when it moves.
TEST(ScalerTest, FittedRowsAndColumnsAreEquallyBrightWhereverTheyLie) {
    for (const int height : {720, 768, 900, 1080, 1440, 2000}) {
        const int width = height * 2 / 3;
        desktop::Scaler scaler;
        for (int line = 1; line < 319; line += 7) {
            Image rows(320, 480), columns(320, 480);
            for (int i = 0; i < 320; ++i) rows.At(i, line) = 0xFFFFFF;
            for (int i = 0; i < 480; ++i) columns.At(line, i) = 0xFFFFFF;
            Image shownRows(width, height), shownColumns(width, height);
            scaler.Draw(rows, shownRows, {0, 0, width, height});
            scaler.Draw(columns, shownColumns, {0, 0, width, height});
            double across = 0, down = 0;
            for (int y = 0; y < height; ++y) down += (shownRows.At(9, y) & 0xFF) / 255.0;
            for (int x = 0; x < width; ++x) across += (shownColumns.At(x, 9) & 0xFF) / 255.0;
            EXPECT_NEAR(height / 480.0, down, 0.03) << "row " << line << " of " << height;
            EXPECT_NEAR(width / 320.0, across, 0.03) << "column " << line << " of " << width;
        }
    }
}

TEST(ScalerTest, FittedPicturesMixOnlyNeighbours) {
    Image picture(320, 480);
    for (int y = 0; y < 480; ++y) {
        for (int x = 160; x < 320; ++x) picture.At(x, y) = 0x00FF80;
    }
    Image screen(720, 1080);
    desktop::Scaler().Draw(picture, screen, {0, 0, 720, 1080});
    for (int x = 0; x < 720; ++x) {
        if (x != 359 && x != 360) EXPECT_EQ(x < 360 ? kOpaque : 0xFF00FF80u, screen.At(x, 500)) << x;
    }
}

TEST(PlacingTest, ThePictureLiesInTheMiddleAsLargeAsItMay) {
    EXPECT_EQ((Box{640, 60, 640, 960}), PlacePicture(320, 480, {0, 0, 1920, 1080}, false));
    EXPECT_EQ((Box{600, 0, 720, 1080}), PlacePicture(320, 480, {0, 0, 1920, 1080}, true));
    EXPECT_EQ((Box{0, 425, 700, 1050}), PlacePicture(320, 480, {0, 0, 700, 1900}, true));
    EXPECT_EQ((Box{2, 2, 320, 480}), PlacePicture(320, 480, {2, 2, 320, 480}, false));
    EXPECT_EQ((Box{-10, -40, 320, 480}), PlacePicture(320, 480, {0, 0, 300, 400}, false)) << "never below 1";
}

TEST(PlacingTest, TheWindowOpensAtTheLargestMultipleWithRoomToSpare) {
    const QSize picture(320, 480), around(12, 66);
    const struct {
        QSize screen;
        int times;
    } cases[] = {{{1366, 768}, 1},  {{1280, 1024}, 1}, {{1920, 1080}, 2}, {{1920, 1040}, 2},
                 {{2560, 1440}, 2}, {{3840, 2160}, 4}, {{640, 400}, 1},   {{800, 3000}, 2}};
    for (const auto& each : cases) {
        EXPECT_EQ(each.times, desktop::LargestTimes(picture, around, each.screen)) << each.screen.height();
    }
}

TEST(ChangeWatchTest, SeesEveryChangeAndNothingElse) {
    Image picture = Noise(32, 48);
    desktop::ChangeWatch watch;
    for (int y = 0; y < 48; ++y) {
        picture.At(y % 32, y) ^= 1;
        EXPECT_TRUE(watch.Differs(picture)) << "row " << y;
        watch.Differs(picture);  // it may ask for one look more before it trusts the picture to stand still
        EXPECT_FALSE(watch.Differs(picture)) << "row " << y;
    }
}

// The mean of what a picture sends out (linear light), of the whole picture.
double Light(const PicturePixels& picture) {
    double sum = 0;
    const auto linear = [](std::uint32_t level) { return std::pow((level & 0xFF) / 255.0, 2.2); };
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            const std::uint32_t pixel = picture.Row(y)[x];
            sum += 0.2126 * linear(pixel >> 16) + 0.7152 * linear(pixel >> 8) + 0.0722 * linear(pixel);
        }
    }
    return sum / picture.width / picture.height;
}

TEST(CalmTest, GoesToAFlashInSmallStepsAndArrives) {
    const Image dark(64, 96, 0x101830);
    for (const std::uint32_t flash : {0xFF0000u, 0xFFFFFFu}) {
        desktop::CalmPicture calm;
        calm.Follow(dark);
        EXPECT_TRUE(calm.HasArrived());
        double last = Light(calm.Pixels());
        int steps = 0;
        for (calm.Follow(Image(64, 96, flash)); !calm.HasArrived() && steps < 100; ++steps) {
            EXPECT_LT(std::abs(Light(calm.Pixels()) - last), 0.06);
            last = Light(calm.Pixels());
            calm.Follow(Image(64, 96, flash));
        }
        EXPECT_GT(steps, 2);
        EXPECT_LT(steps, 40);
        EXPECT_EQ(flash, calm.Pixels().Row(50)[30]);
    }
}

TEST(CalmTest, WhatMovesIsShownAsItIs) {
    Image picture = Noise(64, 96);
    desktop::CalmPicture calm;
    calm.Follow(picture);
    for (int i = 0; i < 20; ++i) {
        for (int y = 0; y < 8; ++y) picture.At(i + y % 3, 40 + y) = 0xFFFFFF;
        calm.Follow(picture);
        EXPECT_TRUE(calm.HasArrived());
        EXPECT_EQ(0xFFFFFFu, calm.Pixels().Row(40)[i]);
    }
}

}  // namespace
