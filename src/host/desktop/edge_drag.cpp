#include "host/desktop/edge_drag.h"

#include <QtGui/QMouseEvent>
#include <algorithm>
#include <cmath>

#include "host/desktop/picture_view.h"

namespace desktop {

EdgeDrag::EdgeDrag(PictureView& view, std::function<void(int)> setTimes) : view_(view), setTimes_(std::move(setTimes)) {
    view.installEventFilter(this);
    view.setMouseTracking(true);
}

Qt::Edges EdgeDrag::EdgesAt(QPoint place) const {
    constexpr int kReach = 6;  // pixels of the desktop
    Qt::Edges edges;
    if (place.x() >= view_.width() - kReach) edges |= Qt::RightEdge;
    if (place.y() >= view_.height() - kReach) edges |= Qt::BottomEdge;
    return edges;
}

void EdgeDrag::ShowCursor(QPoint place) {
    const Qt::Edges edges = EdgesAt(place);
    if (edges == Qt::Edges()) return view_.unsetCursor();
    view_.setCursor(edges == Qt::RightEdge    ? Qt::SizeHorCursor
                    : edges == Qt::BottomEdge ? Qt::SizeVerCursor
                                              : Qt::SizeFDiagCursor);
}

void EdgeDrag::DragTo(QPoint place) {
    const QSizeF one = QSizeF(view_.SizeAt(1)) / view_.devicePixelRatioF();
    const double across = dragged_ & Qt::RightEdge ? place.x() / one.width() : 0;
    const double down = dragged_ & Qt::BottomEdge ? place.y() / one.height() : 0;
    setTimes_(std::max(1, static_cast<int>(std::lround(std::max(across, down)))));
}

bool EdgeDrag::eventFilter(QObject*, QEvent* event) {
    const auto type = event->type();
    if (type != QEvent::MouseButtonPress && type != QEvent::MouseButtonRelease && type != QEvent::MouseMove)
        return false;
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (!active_ || type == QEvent::MouseButtonRelease) {
        dragged_ = {};
    } else if (type == QEvent::MouseButtonPress && mouse->button() == Qt::LeftButton) {
        dragged_ = EdgesAt(mouse->pos());
    } else if (type == QEvent::MouseMove) {
        if (dragged_ == Qt::Edges())
            ShowCursor(mouse->pos());
        else
            DragTo(mouse->pos());
    }
    return active_ && dragged_ != Qt::Edges();
}

}  // namespace desktop
