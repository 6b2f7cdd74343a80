// The bar under the picture while a recorded game is shown: its time with what happened in it, and a line of words.
#pragma once

#include <QtWidgets/QWidget>
#include <functional>

#include "recording/film.h"

namespace runs_window {

class FilmBar final : public QWidget {
  public:
    // `track` outlives the bar. `seek` is called with a frame where the mouse points.
    FilmBar(const FilmTrack& track, std::function<void(int)> seek, QWidget* parent);

    void Tell(int frame, const QString& words);

    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override { Point(*event); }
    void mouseMoveEvent(QMouseEvent* event) override { Point(*event); }

  private:
    int PlaceOf(int frame) const;
    void Point(const QMouseEvent& event);

    const FilmTrack& track_;
    std::function<void(int)> seek_;
    int frame_ = 0;
    QString words_;
};

}  // namespace runs_window
