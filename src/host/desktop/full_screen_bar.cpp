#include "host/desktop/full_screen_bar.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QMenuBar>

#include "host/desktop/picture_view.h"

namespace desktop {

FullScreenBar::FullScreenBar(QMenuBar& bar, PictureView& view) : bar_(bar), view_(view) {
    view.installEventFilter(this);
    bar.setAutoFillBackground(true);  // it lies over the picture
}

void FullScreenBar::Enter() {
    active_ = true;
    pointed_ = altDown_ = false;
    Show(false);
}

void FullScreenBar::Leave() {
    active_ = false;
    Show(true);
    view_.SetCovered(false);
}

void FullScreenBar::Tidy(bool inUse) {
    if (active_ && bar_.isVisible() && !inUse && !pointed_ && !altDown_) Show(false);
}

void FullScreenBar::Show(bool shown) {
    view_.SetCovered(shown);
    bar_.setVisible(shown);
    if (!active_ || !shown) return;
    bar_.setGeometry(0, 0, bar_.parentWidget()->width(), bar_.sizeHint().height());
    bar_.raise();
}

bool FullScreenBar::eventFilter(QObject*, QEvent* event) {
    if (!active_) return false;
    const auto type = event->type();
    if (type == QEvent::MouseMove) {
        const int y = static_cast<QMouseEvent*>(event)->pos().y();
        pointed_ = y <= 0 || (pointed_ && y < 2 * bar_.height());
        if (pointed_ && !bar_.isVisible()) Show(true);
    } else if (type == QEvent::KeyPress || type == QEvent::KeyRelease) {
        if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_Alt) return false;
        altDown_ = type == QEvent::KeyPress;
        if (altDown_) Show(true);
    } else if (type == QEvent::FocusOut) {
        altDown_ = false;
    }
    return false;
}

}  // namespace desktop
