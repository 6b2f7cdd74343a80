#include "runs_window/race.h"

#include <QtGui/QPainter>
#include <QtWidgets/QLayout>
#include <algorithm>

#include "shell/game_loop.h"
#include "stage/plays.h"
#include "state/main_form.h"
#include "state/options.h"
#include "state/random.h"

namespace runs_window {

namespace {

constexpr int kShipSize = 64;
constexpr std::size_t kStart = 26;  // frames until the windows have found their places

// The ship's sheet has the pictures on the left and their masks, white where nothing is, on the right.
QImage GhostShip() {
    const Surface& sheet = MainForm.Chr;
    const int height = std::min(sheet.imageHeight, kShipFrames * kShipSize);
    QImage ship(kShipSize, height, QImage::Format_ARGB32);
    ship.fill(Qt::transparent);
    for (int y = 0; y < height && sheet.imageWidth >= 2 * kShipSize; ++y) {
        for (int x = 0; x < kShipSize; ++x) {
            const Color color = sheet.Row(y)[x], mask = sheet.Row(y)[x + kShipSize];
            constexpr QRgb kHalf = 0x80000000u;
            if (mask == kBlack) ship.setPixel(x, y, kHalf | color);
        }
    }
    return ship;
}

}  // namespace

Race::Race(desktop::Host& host, const Recording& ghost)
    : host_(host),
      track_(TrackOf(ghost)),
      seedBefore_(FixedSeed()),
      words_(new QLabel(host.window.get())),
      ship_(GhostShip()) {
    words_->setAlignment(Qt::AlignCenter);
    words_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    host_.window->layout()->addWidget(words_);
    words_->show();
    host_.window->View().Add(*this);
    ChooseRow(kDifficulties, &Difficulty::level, ghost.level);
    ChooseRow(kPlays, &Play::number, ghost.play);
    FixSeed(ghost.seed);
    gameAsked = true;
    host_.window->Pausing().SetWhenLeft(false);  // the list goes, and with it the keyboard for a moment
    host_.window->activateWindow();
    host_.window->View().setFocus();
}

Race::~Race() {
    host_.window->View().Remove(*this);
    delete words_;
    host_.window->Pausing().SetWhenLeft(host_.pauseWhenLeft);
    if (seedBefore_) FixSeed(*seedBefore_);
    if (!seedBefore_) UseClockSeed();
}

bool Race::IsOver(bool title) {
    begun_ |= !title;
    if (begun_ && !title) Tell();
    return begun_ && title;
}

void Race::Tell() {
    const auto frame = static_cast<std::size_t>(FramesRecorded());
    if (frame == kStart) host_.window->Pausing().SetWhenLeft(host_.pauseWhenLeft);
    if (frame == 0 || frame > track_.frames.size()) return;
    const Long ahead = game.Score - track_.frames[frame - 1].score;
    words_->setText(QString("Against the ghost: %1%2").arg(ahead > 0 ? "+" : "").arg(ahead));
}

void Race::Paint(QPainter& painter) {
    const auto frame = static_cast<std::size_t>(FramesRecorded());
    if (!begun_ || frame == 0 || frame > track_.frames.size()) return;
    const FilmFrame& ghost = track_.frames[frame - 1];
    if (!ghost.dead) painter.drawImage(ghost.x, ghost.y, ship_, 0, ghost.shipFrame * kShipSize, kShipSize, kShipSize);
}

}  // namespace runs_window
