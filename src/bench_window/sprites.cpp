#include "bench_window/sprites.h"

#include <map>

#include "state/bitmaps.h"
#include "state/main_form.h"
#include "toolkit/resources.h"

namespace bench_window {

namespace {

// Kind 40 has no sheet of its own; it is shown from the first boss's.
int BitmapOf(int number) {
    if (number <= kLastSheetKind) return kEnemyBitmap;
    if (number == kSecondBoss) return kSecondBossBitmap;
    return number == kLastBoss ? kLastBossBitmap : kFirstBossBitmap;
}

const QImage& Sheet(int bitmap) {
    static std::map<int, QImage> sheets;
    QImage& sheet = sheets[bitmap];
    const Picture& picture = LoadResPicture(bitmap);
    if (sheet.isNull() && picture.width > 0) {
        sheet = QImage(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width, picture.height,
                       picture.width * 4, QImage::Format_RGB32)
                    .copy();
    }
    return sheet;
}

}  // namespace

const QImage& SheetOf(int number) {
    return Sheet(BitmapOf(number));
}

QImage SpriteOf(const EnemyDataType& kind, int number, int frame) {
    const QImage& sheet = SheetOf(number);
    const QRect place(kind.SX + frame * kind.Width, kind.SY, kind.Width, kind.Height);
    const QRect masks = place.translated(0, kind.Height);
    if (number > kLastDrawnKind || !sheet.rect().contains(place) || !sheet.rect().contains(masks)) return {};
    QImage sprite = sheet.copy(place).convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < place.height(); ++y) {
        for (int x = 0; x < place.width(); ++x) {
            const QRgb color = sprite.pixel(x, y);
            const int through = qGray(sheet.pixel(masks.x() + x, masks.y() + y));
            sprite.setPixel(x, y, qRgba(qRed(color), qGreen(color), qBlue(color), 255 - through));
        }
    }
    return sprite;
}

QImage ExplosionOf(int bomType, int frame) {
    const Surface* strips[] = {&MainForm.BomPic, &MainForm.BomPic64};
    const int size = 32 << bomType;
    if (bomType == 2) return Sheet(kBomBitmap).copy(frame * size, 0, size, size);
    if (bomType > 2) return {};
    const Surface& strip = *strips[bomType];
    return QImage(reinterpret_cast<const uchar*>(strip.image.data()), strip.imageWidth, strip.imageHeight,
                  strip.imageWidth * 4, QImage::Format_RGB32)
        .copy(frame * size, 0, size, size);
}

}  // namespace bench_window
