#include "bench_window/drawing_view.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <algorithm>
#include <utility>

#include "bench_window/sprites.h"

namespace bench_window {

namespace {

QColor ColorOf(const Ink& ink) {
    QColor color(static_cast<QRgb>(ink.color));
    color.setAlphaF(ink.strength);
    return color;
}

class Canvas {
  public:
    Canvas(QPainter& painter, QPointF corner, float scale, DrawnPoint origin)
        : painter_(painter), corner_(corner), scale_(static_cast<double>(scale)), origin_(origin) {}

    void operator()(const DrawnLine& line) {
        painter_.setPen(
            QPen(ColorOf(line.ink), static_cast<double>(line.width), line.dashed ? Qt::DashLine : Qt::SolidLine));
        QPolygonF points;
        for (const DrawnPoint& point : line.points) points << At(point);
        painter_.drawPolyline(points);
    }
    void operator()(const DrawnBox& box) {
        const QRectF rect(At(box.corner), QSizeF(box.width, box.height) * scale_);
        if (box.fill.strength > 0) painter_.fillRect(rect, ColorOf(box.fill));
        if (box.edge.strength <= 0) return;
        painter_.setBrush(Qt::NoBrush);
        painter_.setPen(QPen(ColorOf(box.edge), 1, box.dashed ? Qt::DashLine : Qt::SolidLine));
        painter_.drawRect(rect);
    }
    void operator()(const DrawnDot& dot) {
        painter_.setPen(dot.hollow ? QPen(ColorOf(dot.ink), 1.6) : QPen(Qt::NoPen));
        painter_.setBrush(dot.hollow ? QBrush(Qt::NoBrush) : QBrush(ColorOf(dot.ink)));
        painter_.drawEllipse(At(dot.middle), static_cast<double>(dot.radius), static_cast<double>(dot.radius));
    }
    // Dark round the letters, so that they are read over everything.
    void operator()(const DrawnText& text) {
        constexpr int kSmall = 11, kUsual = 13;
        QFont font = painter_.font();
        font.setPixelSize(text.small ? kSmall : kUsual);
        font.setBold(true);
        painter_.setFont(font);
        const QString words = QString::fromStdString(text.text);
        const QPointF place = At(text.place) + QPointF(0, painter_.fontMetrics().ascent() / 2.0 - 1);
        painter_.setPen(QColor(5, 7, 16, 210));
        for (const QPointF around : {QPointF(-1, 0), QPointF(1, 0), QPointF(0, -1), QPointF(0, 1)})
            painter_.drawText(place + around, words);
        painter_.setPen(ColorOf(text.ink));
        painter_.drawText(place, words);
    }
    void operator()(const DrawnSprite& sprite) {
        const QRectF rect(At(sprite.corner), QSizeF(sprite.kind.Width, sprite.kind.Height) * scale_);
        painter_.setOpacity(static_cast<double>(sprite.strength));
        painter_.drawImage(rect, SpriteOf(sprite.kind, sprite.number, sprite.frame));
        painter_.setOpacity(1);
    }

  private:
    QPointF At(DrawnPoint point) const {
        return corner_ +
               QPointF(static_cast<double>(point.x - origin_.x), static_cast<double>(point.y - origin_.y)) * scale_;
    }

    QPainter& painter_;
    QPointF corner_;
    double scale_;
    DrawnPoint origin_;
};

}  // namespace

DrawingView::DrawingView(std::function<Drawing()> draw, Use use, QWidget* parent)
    : QWidget(parent), draw_(std::move(draw)), use_(std::move(use)) {
    setMinimumSize(440, 600);
    setCursor(Qt::CrossCursor);
}

void DrawingView::paintEvent(QPaintEvent*) {
    const Drawing drawing = draw_();
    scale_ = std::min(static_cast<float>(width()) / drawing.width, static_cast<float>(height()) / drawing.height);
    from_ = drawing.corner;
    const QSizeF size = QSizeF(drawing.width, drawing.height) * static_cast<double>(scale_);
    corner_ = QPointF((width() - size.width()) / 2, (height() - size.height()) / 2);
    QPainter painter(this);
    painter.fillRect(rect(), QColor(16, 19, 31));
    painter.setClipRect(QRectF(corner_, size));
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Shape& shape : drawing.shapes) std::visit(Canvas(painter, corner_, scale_, from_), shape);
}

QPointF DrawingView::PlaceOf(DrawnPoint point) const {
    const auto scale = static_cast<double>(scale_);
    return corner_ + QPointF(static_cast<double>(point.x - from_.x), static_cast<double>(point.y - from_.y)) * scale;
}

void DrawingView::Tell(Mouse what, const QMouseEvent& event) {
    const bool left = event.button() == Qt::LeftButton || event.buttons().testFlag(Qt::LeftButton);
    if (!left) return;
    const QPointF at = (event.position() - corner_) / static_cast<double>(scale_);
    use_(what, {static_cast<float>(at.x()) + from_.x, static_cast<float>(at.y()) + from_.y},
         event.modifiers().testFlag(Qt::ControlModifier));
}

}  // namespace bench_window
