#include "host/desktop/look.h"

#include <QtGui/QFontDatabase>
#include <QtGui/QPalette>
#include <QtWidgets/QStyleFactory>

namespace desktop {

namespace {

// Faces with half-width katakana that stay readable at 12 pixels, best first.
constexpr const char* kFaces[] = {"VL PGothic",   "VL Gothic",        "IPAPGothic",
                                  "TakaoPGothic", "Noto Sans CJK JP", "Droid Sans Fallback"};

QString ChooseFace() {
    for (const char* face : kFaces) {
        if (QFontDatabase::hasFamily(face)) return face;
    }
    const QStringList japanese = QFontDatabase::families(QFontDatabase::Japanese);
    return japanese.isEmpty() ? QApplication::font().family() : japanese.front();
}

QPalette ClassicPalette() {
    const QColor face(192, 192, 192), shade(128, 128, 128), selection(0, 0, 128);
    QPalette palette(Qt::black, face, Qt::white, shade, shade, Qt::black, Qt::white, Qt::white, face);
    palette.setColor(QPalette::Midlight, QColor(223, 223, 223));
    palette.setColor(QPalette::Shadow, Qt::black);
    palette.setColor(QPalette::Highlight, selection);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, shade);
    }
    return palette;
}

}  // namespace

void ApplyLook() {
    constexpr int kTextSize = 12;  // pixels
    QApplication::setStyle(QStyleFactory::create("windows"));
    QApplication::setPalette(ClassicPalette());
    QFont font(ChooseFace());
    font.setPixelSize(kTextSize);
    QApplication::setFont(font);
    QApplication::setWheelScrollLines(1);
}

}  // namespace desktop
