#include "runs_window/film_show.h"

#include <QtCore/QElapsedTimer>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QLayout>
#include <algorithm>

#include "host/audio.h"
#include "host/desktop/clock_stop.h"
#include "host/desktop/waiting.h"
#include "platform/music.h"
#include "platform/unseen.h"
#include "recording/frame_time.h"
#include "state/state.h"

namespace runs_window {

namespace {

constexpr int kSecond = 26;  // frames

}  // namespace

FilmShow::FilmShow(desktop::Host& host, const Recording& recording)
    : host_(host),
      film_(recording),
      bar_(new FilmBar(
          film_.Track(), [this](int frame) { Seek(frame); }, host.window.get())) {
    host_.window->layout()->addWidget(bar_);
    bar_->show();
    host_.window->View().installEventFilter(this);
    host_.window->Pausing().SetWhenLeft(false);  // nobody is in danger
    host_.window->activateWindow();
    host_.window->View().setFocus();
    film_.interrupt = [this] { return leave_ || jump_ || takeOver_; };
}

FilmShow::~FilmShow() {
    host_.window->View().removeEventFilter(this);
    host_.window->Pausing().SetWhenLeft(host_.pauseWhenLeft);
    delete bar_;
}

bool FilmShow::eventFilter(QObject*, QEvent* event) {
    const bool press = event->type() == QEvent::KeyPress;
    if (!press && event->type() != QEvent::KeyRelease) return false;
    const auto& key = static_cast<QKeyEvent&>(*event);
    if (mine_) {
        if (key.key() != Qt::Key_F4) return false;  // all others are the game's
        again_ |= press && !key.isAutoRepeat();
        return true;
    }
    return press ? TakeKey(key) : false;
}

bool FilmShow::TakeKey(const QKeyEvent& event) {
    const bool fine = event.modifiers() & Qt::ShiftModifier;
    const auto by = [this](int frames) { Seek(jump_.value_or(film_.Frame()) + frames); };
    switch (event.key()) {
        case Qt::Key_Escape:
            leave_ = true;
            return true;
        case Qt::Key_Space:
            SetPlaying(!playing_);
            return true;
        case Qt::Key_Left:
            return by(fine ? -1 : -5 * kSecond), true;
        case Qt::Key_Right:
            return by(fine ? 1 : 5 * kSecond), true;
        case Qt::Key_Comma:
            return SetPlaying(false), by(-1), true;
        case Qt::Key_Period:
            return SetPlaying(false), by(1), true;
        case Qt::Key_Home:
            return Seek(0), true;
        case Qt::Key_End:
            return Seek(film_.Frames()), true;
        case Qt::Key_1:
            return SetSpeed(0.5), true;
        case Qt::Key_2:
            return SetSpeed(1), true;
        case Qt::Key_3:
            return SetSpeed(2), true;
        case Qt::Key_4:
            return SetSpeed(8), true;
        case Qt::Key_T:
        case Qt::Key_Return:
        case Qt::Key_F4:
            takeOver_ = !event.isAutoRepeat();
            return true;
        default:
            return false;
    }
}

bool FilmShow::Closing() const {
    return std::ranges::any_of(host_.events,
                               [](const InputEvent& event) { return event.kind == InputEvent::Kind::closeWindow; });
}

// The music of a film that stands or runs at another pace is silent.
void FilmShow::SetPlaying(bool playing) {
    playing_ = playing;
    if (unheard || TheMusic().path.empty() || !TheMusic().playing) return;
    if (playing) MusicPlay();
    if (!playing) MusicStop();
}

void FilmShow::SetSpeed(double speed) {
    speed_ = pace = speed;
    const bool silent = speed != 1;
    if (silent && !unheard) MusicClose();
    const bool heardAgain = unheard && !silent;
    unheard = silent;
    if (heardAgain) SetMusic(TheMusic());
    SetPlaying(true);
}

void FilmShow::Stand() const {
    const desktop::ClockStop clockStop;
    host_.window->View().Show();
    desktop::StandStill();
}

void FilmShow::Run(bool takeOver) {
    takeOver_ = takeOver;
    while (!leave_ && !Closing()) {
        if (jump_) {
            const int frame = *jump_;
            jump_.reset();
            film_.JumpTo(frame);
            SetPlaying(playing_);
        } else if (takeOver_) {
            TakeOver();
        } else if (playing_ && !film_.Ended()) {
            film_.Step();
        } else {
            Stand();
        }
        Tell();
    }
}

// What was pressed in a film is no concern of the game's.
void FilmShow::ForgetKeys() {
    std::erase_if(host_.events, [](const InputEvent& event) { return event.kind != InputEvent::Kind::closeWindow; });
}

// "3, 2, 1" over the still picture; false when the player would rather not.
bool FilmShow::CountDown() {
    constexpr int kStep = 700;  // ms
    const desktop::ClockStop clockStop;
    host_.window->View().Add(*this);
    for (count_ = 3; count_ > 0 && !leave_ && !Closing(); --count_) {
        host_.window->View().ShowAgain();
        QElapsedTimer step;
        step.start();
        while (step.elapsed() < kStep && !leave_ && !Closing())
            desktop::WaitForWindowEvents(static_cast<int>(kStep - step.elapsed()));
    }
    host_.window->View().Remove(*this);
    const bool goOn = !leave_ && !Closing();
    leave_ = false;
    return goOn;
}

void FilmShow::TakeOver() {
    takeOver_ = false;
    SetSpeed(1);
    const int moment = film_.Frame();
    film_.JumpTo(moment);
    do {
        again_ = false;
        MusicStop();
        if (!CountDown()) break;
        ForgetKeys();
        SetPlaying(true);
        mine_ = true;
        host_.window->Pausing().SetWhenLeft(host_.pauseWhenLeft);
        const auto& down = host_.window->View().KeysDown();
        const Try tried = film_.TakeOver({down.begin(), down.end()}, [this] {
            Tell();
            return again_;
        });
        mine_ = false;
        host_.window->Pausing().SetWhenLeft(false);
        ForgetKeys();
        tries_.push_back(tried);
    } while (again_ && !Closing());
    mine_ = again_ = false;
    SetPlaying(false);
}

void FilmShow::Paint(QPainter& painter) {
    constexpr int kWidth = 320, kHeight = 480, kSize = 120;
    painter.fillRect(0, 0, kWidth, kHeight, QColor(0, 0, 0, 110));
    QFont font = painter.font();
    font.setBold(true);
    font.setPixelSize(kSize);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(QRect(0, 0, kWidth, kHeight), Qt::AlignCenter, QString::number(count_));
}

QString FilmShow::WordsOfTries() const {
    if (tries_.empty()) return {};
    const auto best = std::ranges::max_element(tries_, {}, &Try::score);
    const Try& last = tries_.back();
    return QString("  Try %1: +%2, %3, %4 hits (best +%5)")
        .arg(tries_.size())
        .arg(last.score)
        .arg(QString::fromStdString(TimeOf(last.frames)))
        .arg(last.hits)
        .arg(best->score);
}

QString FilmShow::Words() const {
    if (mine_) return QString("You play. F4: again from the moment, Esc: end") + WordsOfTries();
    QString words =
        QString::fromStdString(TimeOf(film_.Frame())) + " / " + QString::fromStdString(TimeOf(film_.Frames()));
    if (speed_ != 1) words += QString("  %1x").arg(speed_);
    if (!playing_) words += "  still";
    words += QString("  %1").arg(game.Score) + WordsOfTries();
    if (!film_.Track().problem.empty()) words += "  Differs at " + QString::fromStdString(film_.Track().problem);
    return words + "  Space, arrows, 1-4: pace, T: take over, Esc";
}

void FilmShow::Tell() {
    bar_->Tell(mine_ ? FramesRecorded() : film_.Frame(), Words());
}

}  // namespace runs_window
