// A drawing on the screen, as large as its place allows, with the mouse in the drawing's own pixels.
#pragma once

#include <QtWidgets/QWidget>
#include <functional>

#include "author/drawing.h"

namespace bench_window {

class DrawingView final : public QWidget {
  public:
    enum class Mouse { press, move, release };
    using Use = std::function<void(Mouse what, DrawnPoint at, bool fine)>;

    // `draw` is asked at every painting.
    DrawingView(std::function<Drawing()> draw, Use use, QWidget* parent);

    // Pixels of the screen for one of the drawing, and where a place of the drawing is seen.
    float Scale() const { return scale_; }
    QPointF PlaceOf(DrawnPoint point) const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override { Tell(Mouse::press, *event); }
    void mouseMoveEvent(QMouseEvent* event) override { Tell(Mouse::move, *event); }
    void mouseReleaseEvent(QMouseEvent* event) override { Tell(Mouse::release, *event); }

  private:
    void Tell(Mouse what, const QMouseEvent& event);

    std::function<Drawing()> draw_;
    Use use_;
    float scale_ = 1;
    QPointF corner_;  // of the drawing in the widget
    DrawnPoint from_{};
};

}  // namespace bench_window
