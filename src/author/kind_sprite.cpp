#include "author/kind_sprite.h"

#include "state/bitmaps.h"
#include "toolkit/resources.h"

namespace {

bool LiesOn(const Picture& sheet, int x, int y, int width, int height) {
    return width > 0 && height > 0 && x >= 0 && y >= 0 && x + width <= sheet.width && y + height <= sheet.height;
}

Color PixelAt(const Picture& sheet, int x, int y) {
    return sheet
        .pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(sheet.width) + static_cast<std::size_t>(x)];
}

}  // namespace

int SheetBitmapOf(int kind) {
    if (kind < 0 || kind > kLastDrawnKind) return 0;
    if (kind <= kLastSheetKind) return kEnemyBitmap;
    if (kind == kSecondBoss) return kSecondBossBitmap;
    return kind == kLastBoss ? kLastBossBitmap : kFirstBossBitmap;
}

Picture KindSprite(const EnemyDataType& kind, int number, int frame) {
    const int bitmap = SheetBitmapOf(number);
    if (bitmap == 0) return {};
    const Picture& sheet = LoadResPicture(bitmap);
    const int left = kind.SX + frame * kind.Width;
    if (!LiesOn(sheet, left, kind.SY, kind.Width, 2 * kind.Height)) return {};
    Picture sprite{kind.Width, kind.Height, {}};
    for (int y = kind.SY; y < kind.SY + kind.Height; ++y) {
        for (int x = left; x < left + kind.Width; ++x) {
            const Color through = PixelAt(sheet, x, y + kind.Height) & 0xFF;
            sprite.pixels.push_back(PixelAt(sheet, x, y) | (0xFF - through) << 24);
        }
    }
    return sprite;
}
