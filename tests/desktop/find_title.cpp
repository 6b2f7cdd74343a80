// find_title PICTURE: whether the title stands somewhere in a compositor's picture, pixel for pixel.
#include <QtGui/QImage>
#include <algorithm>

#include "toolkit/resources.h"
#include "toolkit/surface.h"

namespace {

constexpr int kTitleBitmap = 102;
constexpr QRgb kColors = 0xFFFFFF;

bool StandsAt(const QImage& screen, const Picture& title, int left, int top) {
    for (int y = 0; y < title.height; ++y) {
        const auto* seen = reinterpret_cast<const QRgb*>(screen.constScanLine(top + y)) + left;
        const auto* wanted = title.pixels.data() + static_cast<std::ptrdiff_t>(y) * title.width;
        const auto same = [](QRgb a, QRgb b) { return (a & kColors) == (b & kColors); };
        if (!std::equal(seen, seen + title.width, wanted, same)) return false;
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    const QImage screen = QImage(argc > 1 ? argv[1] : "").convertToFormat(QImage::Format_RGB32);
    const Picture& title = LoadResPicture(kTitleBitmap);
    for (int top = 0; top + title.height <= screen.height(); ++top) {
        for (int left = 0; left + title.width <= screen.width(); ++left) {
            if (StandsAt(screen, title, left, top)) return 0;
        }
    }
    return 1;
}
