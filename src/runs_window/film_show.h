// A recorded game on the screen: played, jumped about in, taken over.
#pragma once

#include <QtCore/QObject>
#include <optional>
#include <vector>

#include "host/desktop/desktop.h"
#include "host/desktop/picture_layer.h"
#include "recording/film.h"
#include "runs_window/film_bar.h"

class QKeyEvent;

namespace runs_window {

class FilmShow final : public QObject, private desktop::PictureLayer {
  public:
    // Within a yield of the title.
    FilmShow(desktop::Host& host, const Recording& recording);
    ~FilmShow() override;

    // Shows it until the player leaves it, or the program's window is closed. `takeOver`: at once, from the start.
    void Run(bool takeOver);
    void Leave() { leave_ = true; }

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Paint(QPainter& painter) override;
    bool TakeKey(const QKeyEvent& event);
    bool Closing() const;
    void Stand() const;
    void SetPlaying(bool playing);
    void SetSpeed(double speed);
    void Seek(int frame) { jump_ = frame; }
    void TakeOver();
    bool CountDown();
    void ForgetKeys();
    void Tell();
    QString Words() const;
    QString WordsOfTries() const;

    desktop::Host& host_;
    Film film_;
    FilmBar* bar_;
    std::optional<int> jump_;
    bool leave_ = false;
    bool takeOver_ = false;
    bool again_ = false;  // the try is given up for another one
    bool mine_ = false;   // the player plays
    bool playing_ = true;
    double speed_ = 1;
    int count_ = 0;  // of the count-down
    std::vector<Try> tries_;
};

}  // namespace runs_window
