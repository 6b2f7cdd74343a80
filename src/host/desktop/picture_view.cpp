#include "host/desktop/picture_view.h"

#include <QtGui/QBackingStore>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtGui/QWindow>
#include <algorithm>
#include <cmath>

#include "host/desktop/keys_down.h"
#include "toolkit/surface.h"

namespace desktop {

namespace {

NativeKey KeyOf(const QKeyEvent& event) {
    return {event.nativeVirtualKey(), event.nativeScanCode(), event.key()};
}

PicturePixels DrawingAreaOf(const Surface& surface) {
    const int width = std::min(surface.imageWidth, surface.Width - 2 * kBorder);
    const int height = std::min(surface.imageHeight, surface.Height - 2 * kBorder);
    return {surface.image.data(), width, height, surface.imageWidth};
}

// The pixels of an image that can be written as they are; none if it has others.
ScreenPixels PixelsOf(QImage& image) {
    const auto format = image.format();
    if (format != QImage::Format_RGB32 && format != QImage::Format_ARGB32_Premultiplied) return {};
    const auto stride = static_cast<int>(image.bytesPerLine() / static_cast<qsizetype>(sizeof(std::uint32_t)));
    return {reinterpret_cast<std::uint32_t*>(image.bits()), image.width(), image.height(), stride};
}

QRect ToRect(const Box& box) {
    return {box.x, box.y, box.width, box.height};
}

// One ring of a bevel: light falls on it from the upper left.
void PaintRing(QPainter& painter, const QRect& ring, int thick, const QColor& upperLeft, const QColor& lowerRight) {
    painter.fillRect(ring, lowerRight);
    painter.fillRect(ring.adjusted(0, 0, -thick, -thick), upperLeft);
}

// To pixels of the screen, with the origin at the view's corner.
void UseScreenPixels(QPainter& painter, QPointF corner, double ratio) {
    const QPointF whole(std::round(corner.x()), std::round(corner.y()));
    painter.translate((whole - corner) / ratio);
    painter.scale(1 / ratio, 1 / ratio);
}

}  // namespace

PictureView::PictureView(const Surface& surface, std::vector<InputEvent>& events, QWidget* parent)
    : QWidget(parent), surface_(surface), events_(events) {
    SetTimes(1);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_InputMethodEnabled, false);  // X and Z must stay keys
    setFocusPolicy(Qt::StrongFocus);
}

void PictureView::Show() {
    const PicturePixels picture = DrawingAreaOf(surface_);
    const bool changed = changes_.Differs(picture);
    if (!changed && (!calm_ || calm_->HasArrived())) return;
    if (calm_) calm_->Follow(picture);
    if (!ShowStraight()) repaint(PictureRect());
}

// What is seen of the game's picture.
PicturePixels PictureView::Picture() const {
    return calm_ ? calm_->Pixels() : DrawingAreaOf(surface_);
}

void PictureView::SetCalm(bool calm) {
    calm_.reset();
    if (calm) calm_.emplace().Follow(DrawingAreaOf(surface_));
    update();
}

// The short way, around the widgets' own repainting. Not before the window is seen at its present size, and only where
// the picture is all there is.
bool PictureView::ShowStraight() {
    QBackingStore* store = backingStore();
    QWindow* screen = window()->windowHandle();
    const bool ready = store && screen && screen->isExposed() && store->size() == window()->size();
    const bool alone = layers_.empty() && !covered_;
    const QRect rect = PictureRect().translated(mapTo(window(), QPoint()));
    if (!ready || !alone || !isVisible()) return false;
    store->beginPaint(rect);
    const bool drawn = DrawInto(*store->paintDevice(), mapTo(window(), QPoint()));
    store->endPaint();
    if (drawn) store->flush(rect, screen);
    return drawn;
}

// Writes the picture to where a window keeps its pixels, if it can be written to as it is. `place` is where the view
// lies on the window.
bool PictureView::DrawInto(QPaintDevice& device, QPoint place) {
    if (device.devType() != QInternal::Image) return false;
    const ScreenPixels screen = PixelsOf(static_cast<QImage&>(device));
    if (!screen.first) return false;
    const Sight sight = See(QPointF(place) * devicePixelRatioF());
    Box box = sight.picture;
    box.x += sight.corner.x(), box.y += sight.corner.y();
    scaler_.Draw(Picture(), screen, box);
    return true;
}

QSize PictureView::SizeAt(int times) const {
    const PicturePixels picture = DrawingAreaOf(surface_);
    return QSize(picture.width, picture.height) * times + QSize(2, 2) * Border();
}

// The border is two pixels of the desktop, as in any of its windows.
int PictureView::Border() const {
    return bordered_ ? kBorder * std::max(1, static_cast<int>(std::lround(devicePixelRatioF()))) : 0;
}

void PictureView::SetTimes(int times) {
    bordered_ = true;
    const QSizeF size = QSizeF(SizeAt(times)) / devicePixelRatioF();
    setFixedSize(static_cast<int>(std::ceil(size.width())), static_cast<int>(std::ceil(size.height())));
}

void PictureView::FillScreen(bool fit) {
    bordered_ = false;
    fit_ = fit;
    setMinimumSize(0, 0);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    update();
}

void PictureView::Add(PictureLayer& layer) {
    layers_.push_back(&layer);
    ShowAgain();
}

void PictureView::Remove(PictureLayer& layer) {
    std::erase(layers_, &layer);
    ShowAgain();
}

PictureView::Sight PictureView::See(QPointF corner) const {
    const double ratio = devicePixelRatioF();
    const PicturePixels picture = DrawingAreaOf(surface_);
    const QPointF end = corner + QPointF(width(), height()) * ratio;
    const QPoint from = (corner).toPoint(),
                 to(static_cast<int>(std::floor(end.x() + 0.01)), static_cast<int>(std::floor(end.y() + 0.01)));
    const QSize size(to.x() - from.x(), to.y() - from.y());
    const int border = Border();
    const Box area{border, border, size.width() - 2 * border, size.height() - 2 * border};
    return {from, size, PlacePicture(picture.width, picture.height, area, fit_ && !bordered_)};
}

// The part of the view that holds the picture, in the units of widgets.
QRect PictureView::PictureRect() const {
    const double ratio = devicePixelRatioF();
    const QPointF corner = QPointF(mapTo(window(), QPoint())) * ratio;
    const Sight sight = See(corner);
    QRectF rect = ToRect(sight.picture);
    rect.translate(QPointF(sight.corner) - corner);
    return QRectF(rect.topLeft() / ratio, rect.size() / ratio).toAlignedRect().intersected(this->rect());
}

void PictureView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    QPoint offset;
    static_cast<void>(redirected(&offset));
    const double ratio = devicePixelRatioF();
    const QPointF corner = QPointF(-offset) * ratio;
    const Sight sight = See(corner);
    UseScreenPixels(painter, corner, ratio);
    if (PictureRect() != event->rect()) PaintSurroundings(painter, sight);
    PaintPicture(painter, sight);
    PaintLayers(painter, sight);
}

void PictureView::PaintSurroundings(QPainter& painter, const Sight& sight) const {
    const QRect picture = ToRect(sight.picture);
    const int thick = Border() / kBorder, border = Border();
    QRegion around =
        QRegion(QRect(QPoint(), sight.size)).subtracted(picture.adjusted(-border, -border, border, border));
    for (const QRect& part : around) painter.fillRect(part, Qt::black);
    if (!bordered_) return;
    painter.save();
    painter.setClipRegion(QRegion(picture.adjusted(-border, -border, border, border)).subtracted(picture));
    const QPalette& colors = palette();
    PaintRing(painter, picture.adjusted(-border, -border, border, border), thick, colors.dark().color(),
              colors.light().color());
    PaintRing(painter, picture.adjusted(-thick, -thick, thick, thick), thick, colors.shadow().color(),
              colors.midlight().color());
    painter.restore();
}

void PictureView::PaintPicture(QPainter& painter, const Sight& sight) {
    const Box& box = sight.picture;
    QImage image(box.width, box.height, QImage::Format_RGB32);
    scaler_.Draw(Picture(), PixelsOf(image), {0, 0, box.width, box.height});
    painter.drawImage(box.x, box.y, image);
}

void PictureView::PaintLayers(QPainter& painter, const Sight& sight) {
    const PicturePixels picture = Picture();
    painter.setClipRect(ToRect(sight.picture));
    painter.translate(sight.picture.x, sight.picture.y);
    painter.scale(static_cast<double>(sight.picture.width) / picture.width,
                  static_cast<double>(sight.picture.height) / picture.height);
    for (PictureLayer* layer : layers_) {
        painter.save();
        layer->Paint(painter);
        painter.restore();
    }
}

// Qt may call the first press of a key a repeat after the keyboard was away. Where nobody says which keys are down, a
// repeat is what shows that a key still is; but a held Esc that has closed a menu must not leave the game too.
void PictureView::keyPressEvent(QKeyEvent* event) {
    const NativeKey key = KeyOf(*event);
    const bool doubtful = event->isAutoRepeat() && !knowsKeysDown_ && EndsOrStarts(VirtualKeyOf(key));
    if (!doubtful) keyboard_.Press(key, events_);
}

void PictureView::keyReleaseEvent(QKeyEvent* event) {
    if (!event->isAutoRepeat()) keyboard_.Release(KeyOf(*event), events_);
}

void PictureView::focusInEvent(QFocusEvent* event) {
    const auto places = PlacesDown();
    knowsKeysDown_ = places.has_value();
    std::vector<NativeKey> down;
    for (const std::uint32_t place : places.value_or(std::vector<std::uint32_t>{})) {
        down.push_back({SymbolAt(place), place, 0});
    }
    keyboard_.Resume(down, events_);
    QWidget::focusInEvent(event);
}

// Window managers take the keyboard for moments that Qt does not report.
void PictureView::LetGoOfLostKeys() {
    if (!knowsKeysDown_ || !keyboard_.AnyDown()) return;
    if (const auto places = PlacesDown()) keyboard_.KeepOnly(*places, events_);
}

void PictureView::focusOutEvent(QFocusEvent* event) {
    keyboard_.ReleaseAll(events_);
    QWidget::focusOutEvent(event);
}

}  // namespace desktop
