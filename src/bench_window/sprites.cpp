#include "bench_window/sprites.h"

#include <algorithm>
#include <map>

#include "author/kind_sprite.h"
#include "state/bitmaps.h"
#include "state/main_form.h"
#include "toolkit/resources.h"

namespace bench_window {

namespace {

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
    return Sheet(SheetBitmapOf(std::min<int>(number, kLastDrawnKind)));
}

QImage SpriteOf(const EnemyDataType& kind, int number, int frame) {
    const Picture sprite = KindSprite(kind, number, frame);
    return QImage(reinterpret_cast<const uchar*>(sprite.pixels.data()), sprite.width, sprite.height, sprite.width * 4,
                  QImage::Format_ARGB32)
        .copy();
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
