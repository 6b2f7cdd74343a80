// QPainter on QImages. Sprites are images with alpha. What is only painted is ORed, which has no equal among alphas.
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <map>
#include <memory>

#include "painter.h"

namespace {

// One transfer, ready to be drawn.
struct Step {
    QPainter::CompositionMode mode;
    QPoint to;
    const QImage* image;
    QRect part;
    QRgb color;
};

struct Prepared {
    QImage screen;
    std::map<const Surface*, QImage> sheets;
    std::vector<std::unique_ptr<QImage>> sprites;
    std::vector<Step> steps;
};

QImage SheetOf(const Surface& surface) {
    return {reinterpret_cast<const uchar*>(surface.image.data()), surface.imageWidth, surface.imageHeight,
            static_cast<qsizetype>(surface.imageWidth) * 4, QImage::Format_RGB32};
}

// Opaque where the mask is black.
std::unique_ptr<QImage> SpriteOf(const Touched& t) {
    auto image = std::make_unique<QImage>(t.width, t.height, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < t.height; ++y) {
        for (int x = 0; x < t.width; ++x) {
            const Color mask = t.from->Row(t.mask.y + y)[t.mask.x + x];
            const Color color = t.from->Row(t.image.y + y)[t.image.x + x];
            image->setPixel(x, y, mask == kBlack ? color | 0xFF000000u : color);
        }
    }
    return image;
}

Step StepOf(Prepared& prepared, const Touched& t) {
    const QPoint to(t.x, t.y);
    if (t.draw == Draw::pixel) return {QPainter::CompositionMode_Source, to, nullptr, {}, t.color | 0xFF000000u};
    if (t.draw == Draw::sprite) {
        prepared.sprites.push_back(SpriteOf(t));
        const QImage* image = prepared.sprites.back().get();
        return {QPainter::CompositionMode_SourceOver, to, image, image->rect(), 0};
    }
    const QImage& sheet = prepared.sheets.try_emplace(t.from, SheetOf(*t.from)).first->second;
    const auto mode = t.draw == Draw::copy   ? QPainter::CompositionMode_Source
                      : t.draw == Draw::mask ? QPainter::RasterOp_SourceAndDestination
                                             : QPainter::RasterOp_SourceOrDestination;
    return {mode, to, &sheet, {t.image.x, t.image.y, t.width, t.height}, 0};
}

void Paint(Prepared& prepared) {
    QPainter painter(&prepared.screen);
    for (const Step& step : prepared.steps) {
        painter.setCompositionMode(step.mode);
        if (step.image) {
            painter.drawImage(step.to, *step.image, step.part);
        } else {
            painter.fillRect(QRect(step.to, QSize(1, 1)), QColor(step.color));
        }
    }
}

std::vector<Color> Pixels(const Prepared& prepared) {
    std::vector<Color> pixels;
    for (int y = 0; y < prepared.screen.height(); ++y) {
        const auto* row = reinterpret_cast<const Color*>(prepared.screen.constScanLine(y));
        for (int x = 0; x < prepared.screen.width(); ++x) pixels.push_back(row[x] & 0xFFFFFFu);
    }
    return pixels;
}

}  // namespace

std::optional<Painter> MakePainter(const std::vector<Touched>& drawn, int width, int height) {
    auto prepared = std::make_shared<Prepared>();
    prepared->screen = QImage(width, height, QImage::Format_RGB32);
    prepared->screen.fill(Qt::black);
    for (const Touched& t : drawn) prepared->steps.push_back(StepOf(*prepared, t));
    return Painter{[prepared] { Paint(*prepared); }, [prepared] { return Pixels(*prepared); }};
}
