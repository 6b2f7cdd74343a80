#include "host/desktop/picture_view.h"

#include <QtWidgets/qdrawutil.h>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>

#include <algorithm>

#include "platform/surface.h"

namespace desktop {

namespace {

NativeKey KeyOf(const QKeyEvent& event) {
    return {event.nativeVirtualKey(), event.nativeScanCode(), event.key()};
}

// The drawing area as an image that shares the surface's pixels.
QImage Wrap(const Surface& surface) {
    const int width = std::min(surface.imageWidth, surface.Width - 2 * kBorder);
    const int height = std::min(surface.imageHeight, surface.Height - 2 * kBorder);
    return {reinterpret_cast<const uchar*>(surface.image.data()), width, height,
            surface.imageWidth * static_cast<int>(sizeof(Color)), QImage::Format_RGB32};
}

}  // namespace

PictureView::PictureView(const Surface& surface, std::vector<InputEvent>& events, QWidget* parent)
    : QWidget(parent), shown_(Wrap(surface).copy()), events_(events) {
    setFixedSize(surface.Width, surface.Height);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_InputMethodEnabled, false);  // X and Z must stay keys
    setFocusPolicy(Qt::StrongFocus);
}

void PictureView::Show(const Surface& surface) {
    const QImage picture = Wrap(surface);
    if (picture == shown_) return;
    shown_ = picture.copy();
    repaint();
}

void PictureView::paintEvent(QPaintEvent*) {
    QPainter painter(this);  // without smoothing: a scaled screen shows square pixels
    qDrawWinPanel(&painter, rect(), palette(), true);
    painter.drawImage(kBorder, kBorder, shown_);
}

void PictureView::keyPressEvent(QKeyEvent* event) {
    if (!event->isAutoRepeat()) keyboard_.Press(KeyOf(*event), events_);
}

void PictureView::keyReleaseEvent(QKeyEvent* event) {
    if (!event->isAutoRepeat()) keyboard_.Release(KeyOf(*event), events_);
}

void PictureView::focusOutEvent(QFocusEvent* event) {
    keyboard_.ReleaseAll(events_);
    QWidget::focusOutEvent(event);
}

}  // namespace desktop
