#include "runs_window/film_bar.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <algorithm>
#include <utility>

namespace runs_window {

namespace {

constexpr int kMargin = 6;
constexpr int kLine = 12;  // height of the time line
constexpr int kTextTop = kMargin + kLine + 4;

// One row per FilmMark::Kind: its colour and the share of the line's height it takes, from below.
constexpr struct {
    QRgb color;
    int height;
} kMarks[] = {
    /* hit   */ {0xFFE04040, 6},
    /* boss  */ {0xFFE0C040, kLine},
    /* stage */ {0xFF60A0FF, kLine},
    /* death */ {0xFFFF0000, kLine},
};

}  // namespace

FilmBar::FilmBar(const FilmTrack& track, std::function<void(int)> seek, QWidget* parent)
    : QWidget(parent), track_(track), seek_(std::move(seek)) {
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize FilmBar::sizeHint() const {
    return {1, kTextTop + fontMetrics().height() + kMargin};
}

void FilmBar::Tell(int frame, const QString& words) {
    if (frame == frame_ && words == words_) return;
    frame_ = frame;
    words_ = words;
    update();
}

int FilmBar::PlaceOf(int frame) const {
    const auto frames = std::max<std::size_t>(1, track_.frames.size());
    return kMargin +
           static_cast<int>(static_cast<double>(frame) / static_cast<double>(frames) * (width() - 2 * kMargin));
}

void FilmBar::Point(const QMouseEvent& event) {
    if (!(event.buttons() & Qt::LeftButton)) return;
    const double part = (event.position().x() - kMargin) / std::max(1, width() - 2 * kMargin);
    seek_(static_cast<int>(std::clamp(part, 0.0, 1.0) * static_cast<double>(track_.frames.size())));
}

void FilmBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(24, 24, 32));
    const QRect line(kMargin, kMargin, width() - 2 * kMargin, kLine);
    painter.fillRect(line, QColor(60, 60, 80));
    painter.fillRect(QRect(line.topLeft(), QPoint(PlaceOf(frame_), line.bottom())), QColor(90, 110, 150));
    for (const FilmMark& mark : track_.marks) {
        const auto& [color, height] = kMarks[static_cast<std::size_t>(mark.kind)];
        painter.fillRect(PlaceOf(mark.frame), line.bottom() + 1 - height, 2, height, QColor::fromRgb(color));
    }
    painter.fillRect(PlaceOf(frame_) - 1, kMargin - 2, 3, kLine + 4, Qt::white);
    painter.setPen(Qt::white);
    painter.drawText(QRect(kMargin, kTextTop, width() - 2 * kMargin, fontMetrics().height()), Qt::AlignLeft,
                     fontMetrics().elidedText(words_, Qt::ElideRight, width() - 2 * kMargin));
}

}  // namespace runs_window
