// The visible game screen: the last finished picture inside a sunken border, and the keyboard while it has the focus.
#pragma once

#include <QtGui/QImage>
#include <QtWidgets/QWidget>
#include <vector>

#include "host/desktop/key_map.h"

struct Surface;

namespace desktop {

class PictureView final : public QWidget {
  public:
    // Key events go to `events`, which outlives the view.
    PictureView(const Surface& surface, std::vector<InputEvent>& events, QWidget* parent);

    // Takes a copy of the surface's drawing area and paints it at once. The screen shows only such copies, so a repaint
    // in the middle of a frame never shows a half-drawn one.
    void Show(const Surface& surface);

    const QImage& Shown() const { return shown_; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool) override { return false; }

  private:
    QImage shown_;
    Keyboard keyboard_;
    std::vector<InputEvent>& events_;
};

}  // namespace desktop
