// A game against the ghost of another one: the same seed, play and level, its ship seen through, its score beside one's
// own. It is a game like any other; of the ghost nothing is in its picture or state.
#pragma once

#include <QtWidgets/QLabel>
#include <cstdint>
#include <optional>

#include "host/desktop/desktop.h"
#include "host/desktop/picture_layer.h"
#include "recording/film.h"

namespace runs_window {

class Race final : private desktop::PictureLayer {
  public:
    // At the title: asks for the game.
    Race(desktop::Host& host, const Recording& ghost);
    ~Race() override;
    Race(const Race&) = delete;
    Race& operator=(const Race&) = delete;

    // To be asked at every yield; `title`: no game is going on. The game has begun and ended.
    bool IsOver(bool title);

  private:
    void Paint(QPainter& painter) override;
    void Tell();

    desktop::Host& host_;
    FilmTrack track_;
    std::optional<std::uint64_t> seedBefore_;
    QLabel* words_;
    QImage ship_;  // its pictures one below the other, half seen through
    bool begun_ = false;
};

}  // namespace runs_window
