// Dragging the window larger and smaller by the right and lower edge of its picture, in whole multiples. The window's
// own frame is of fixed size for the window system.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPoint>
#include <functional>

namespace desktop {

class PictureView;

class EdgeDrag final : public QObject {
  public:
    // Calls `setTimes` with the multiple the pointer asks for, 1 or more.
    EdgeDrag(PictureView& view, std::function<void(int)> setTimes);

    void SetActive(bool active) { active_ = active; }

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    Qt::Edges EdgesAt(QPoint place) const;
    void ShowCursor(QPoint place);
    void DragTo(QPoint place);

    PictureView& view_;
    std::function<void(int)> setTimes_;
    Qt::Edges dragged_;
    bool active_ = true;
};

}  // namespace desktop
