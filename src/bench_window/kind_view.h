// A kind as it looks in the game: its sprite moving, the area that is hit, its explosion, its sheet to choose from.
#pragma once

#include <QtCore/QTimer>
#include <QtWidgets/QWidget>
#include <functional>

#include "author/desk.h"

namespace bench_window {

class KindView final : public QWidget {
  public:
    KindView(Desk& desk, std::function<void()> changed, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent*) override { pulse_.start(); }
    void hideEvent(QHideEvent*) override { pulse_.stop(); }

  private:
    void PaintSprite(QPainter& painter, const EnemyDataType& kind);
    void PaintExplosion(QPainter& painter, const EnemyDataType& kind) const;
    void PaintSheet(QPainter& painter, const EnemyDataType& kind);

    Desk& desk_;
    std::function<void()> changed_;
    QTimer pulse_;
    std::size_t frame_ = 0;
    double sheetScale_ = 1;
};

}  // namespace bench_window
