#include "bench_window/kind_view.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <algorithm>

#include "bench_window/sprites.h"
#include "combat/enemy_hits.h"

namespace bench_window {

namespace {

constexpr int kFrameTime = 39;  // ms, as in the game
constexpr int kTop = 200;       // the height of what moves; the sheet is below
constexpr QRect kSpriteRoom(0, 0, 250, kTop), kBombRoom(254, 0, 180, kTop);
constexpr QRgb kDark = qRgb(5, 7, 16), kYellow = qRgb(255, 240, 120), kOrange = qRgb(255, 120, 90),
               kPale = qRgb(150, 165, 205);

void Frame(QPainter& painter, const QRectF& rect, QRgb color, Qt::PenStyle style = Qt::SolidLine) {
    painter.setPen(QPen(QColor(color), 1, style));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect);
}

void Say(QPainter& painter, const QRect& room, const QString& text) {
    painter.setPen(QColor(kPale));
    painter.drawText(room.adjusted(8, 6, -8, -6), Qt::AlignLeft | Qt::AlignTop, text);
}

}  // namespace

KindView::KindView(Desk& desk, std::function<void()> changed, QWidget* parent)
    : QWidget(parent), desk_(desk), changed_(std::move(changed)) {
    setMinimumSize(440, 540);
    pulse_.setInterval(kFrameTime);
    connect(&pulse_, &QTimer::timeout, this, [this] {
        ++frame_;
        update(0, 0, width(), kTop);
    });
}

void KindView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(16, 19, 31));
    const EnemyDataType& kind = desk_.Model().Working().EnemyData[desk_.Kind()];
    PaintSprite(painter, kind);
    PaintExplosion(painter, kind);
    PaintSheet(painter, kind);
}

// Twice its size where there is room, with the area in which a shot's corner hits it.
void KindView::PaintSprite(QPainter& painter, const EnemyDataType& kind) {
    painter.fillRect(kSpriteRoom, QColor(kDark));
    Say(painter, kSpriteRoom, QString("kind %1: where shots hit").arg(desk_.Kind()));
    const auto animation = desk_.Animation();
    const int frame = animation.empty() ? 0 : animation[frame_ % animation.size()];
    const QImage sprite = SpriteOf(kind, desk_.Kind(), frame);
    const double scale = kind.Width > 64 || kind.Height > 64 ? 1 : 2;
    const QPointF middle = QRectF(kSpriteRoom).center() + QPointF(6, 12);
    const QRectF rect(middle - QPointF(kind.Width, kind.Height) * scale / 2, QSizeF(kind.Width, kind.Height) * scale);
    painter.save();
    painter.setClipRect(kSpriteRoom);
    painter.drawImage(rect, sprite);
    const QMarginsF reach(kReachLeft * scale, kReachTop * scale, kReachRight * scale, kReachBottom * scale);
    Frame(painter, rect.marginsAdded(reach), kOrange, Qt::DashLine);
    painter.restore();
}

void KindView::PaintExplosion(QPainter& painter, const EnemyDataType& kind) const {
    constexpr std::size_t kFrames = 7, kHeld = 3;
    painter.fillRect(kBombRoom, QColor(kDark));
    Say(painter, kBombRoom, kind.BomType <= 2 ? QString("explosion %1").arg(kind.BomType) : QString("no explosion"));
    const QImage image = ExplosionOf(kind.BomType, static_cast<int>(frame_ / kHeld % kFrames));
    painter.setCompositionMode(QPainter::CompositionMode_Lighten);
    painter.drawImage(
        QRect(QPoint(), image.size()).translated(kBombRoom.center() - image.rect().center() + QPoint(0, 10)), image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

void KindView::PaintSheet(QPainter& painter, const EnemyDataType& kind) {
    constexpr int kGap = 6;
    const QImage& sheet = SheetOf(desk_.Kind());
    sheetScale_ = std::min({static_cast<double>(width()) / sheet.width(),
                            static_cast<double>(height() - kTop - kGap) / sheet.height(), 1.0});
    painter.translate(0, kTop + kGap);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(QPointF(), QSizeF(sheet.size()) * sheetScale_), sheet);
    const QSizeF size = QSizeF(kind.Width, kind.Height) * sheetScale_;
    const QPointF corner = QPointF(kind.SX, kind.SY) * sheetScale_;
    Frame(painter, QRectF(corner, size), kYellow);
    Frame(painter, QRectF(corner + QPointF(0, size.height()), size), kYellow, Qt::DotLine);
    painter.resetTransform();
}

void KindView::mousePressEvent(QMouseEvent* event) {
    const QPointF at = (event->position() - QPointF(0, kTop + 6)) / sheetScale_;
    if (at.y() < 0 || !QRectF(SheetOf(desk_.Kind()).rect()).contains(at)) return;
    desk_.ChooseFrame(static_cast<int>(at.x()), static_cast<int>(at.y()));
    changed_();
}

}  // namespace bench_window
