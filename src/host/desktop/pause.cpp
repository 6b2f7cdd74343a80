#include "host/desktop/pause.h"

#include <QtCore/QElapsedTimer>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <algorithm>
#include <span>

#include "host/audio.h"
#include "host/desktop/clock_stop.h"
#include "host/desktop/joysticks.h"
#include "host/desktop/picture_view.h"
#include "host/desktop/waiting.h"
#include "state/main_form.h"
#include "toolkit/input_state.h"

namespace desktop {

namespace {

constexpr int kStep = 50;  // ms, of looking at the pad

bool IsKeyNews(const InputEvent& event) {
    using Kind = InputEvent::Kind;
    return event.kind == Kind::keyDown || event.kind == Kind::keyUp || event.kind == Kind::allKeysUp;
}

// The music that played stands still for as long as this lives.
class Silence {
  public:
    Silence() : playing_(MusicMode() == "playing") {
        if (playing_) MusicStop();
    }
    ~Silence() {
        if (playing_) MusicPlay();
    }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

  private:
    bool playing_;
};

}  // namespace

Pause::Pause(PictureView& view, std::vector<InputEvent>& events) : view_(view), events_(events) {
    view.installEventFilter(this);
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (whenLeft_ && state == Qt::ApplicationInactive) Ask();
    });
}

Pause::~Pause() = default;

// The menus of a game's start are switched off exactly while a game runs.
bool Pause::InGame() {
    return !MainForm.MENU100.Enabled;
}

void Pause::Ask() {
    if (phase_ == Phase::goingOn) phase_ = Phase::standing;
    if (phase_ != Phase::none || !InGame()) return;
    phase_ = Phase::asked;
    mark_ = events_.size();
}

bool Pause::TakeKey(const QKeyEvent& event) {
    const bool pauseKey = event.key() == Qt::Key_P || event.key() == Qt::Key_Pause;
    const bool plain = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
    if (event.isAutoRepeat()) return pauseKey;
    if (phase_ == Phase::standing) {
        const NativeKey key{event.nativeVirtualKey(), event.nativeScanCode(), event.key()};
        if ((pauseKey && plain) || VirtualKeyOf(key) != 0) phase_ = Phase::goingOn;
    } else if (pauseKey && plain) {
        Ask();
    }
    return pauseKey;
}

bool Pause::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::KeyPress) return TakeKey(static_cast<QKeyEvent&>(*event));
    if (event->type() == QEvent::MouseButtonPress && phase_ == Phase::standing) phase_ = Phase::goingOn;
    const bool left = event->type() == QEvent::FocusOut && !QGuiApplication::focusWindow();
    if (left && whenLeft_) Ask();
    return false;
}

bool Pause::Came(InputEvent::Kind kind) const {
    return std::ranges::any_of(std::span(events_).subspan(std::min(mark_, events_.size())),
                               [kind](const InputEvent& event) { return event.kind == kind; });
}

bool Pause::Closing() const {
    return Came(InputEvent::Kind::closeWindow);
}

void Pause::Hold(Joysticks& joysticks) {
    if (phase_ != Phase::asked) return;
    const ClockStop clockStop;
    const Silence silence;
    const std::set<int> known = KeysTheGameKnows();
    do {
        Stand(joysticks);
        GoOn();
    } while (phase_ != Phase::none);
    TellChangedKeys(known);
}

void Pause::Stand(Joysticks& joysticks) {
    phase_ = Phase::standing;
    padHelp_ = joysticks.ButtonHelp();
    view_.Add(*this);
    std::uint32_t pressed = joysticks.PressedButtons();
    while (phase_ == Phase::standing && !Closing()) {
        WaitForWindowEvents(kStep);
        const std::uint32_t now = joysticks.PressedButtons();
        if ((now & ~pressed) != 0 || Came(InputEvent::Kind::menu)) phase_ = Phase::goingOn;
        pressed = now;
    }
    view_.Remove(*this);
}

// Fingers find their places.
void Pause::GoOn() {
    constexpr int kStill = 1000;  // ms
    QElapsedTimer still;
    still.start();
    while (phase_ == Phase::goingOn && !Closing() && still.elapsed() < kStill) {
        WaitForWindowEvents(static_cast<int>(kStill - still.elapsed()));
    }
    if (phase_ == Phase::goingOn || Closing()) phase_ = Phase::none;
}

std::set<int> Pause::KeysTheGameKnows() const {
    std::set<int> known;
    for (const HeldKey& key : HeldKeys()) {
        if (key.down) known.insert(key.code);
    }
    for (const InputEvent& event : std::span(events_).first(std::min(mark_, events_.size()))) {
        if (event.kind == InputEvent::Kind::keyDown) known.insert(event.code);
        if (event.kind == InputEvent::Kind::keyUp) known.erase(event.code);
        if (event.kind == InputEvent::Kind::allKeysUp) known.clear();
    }
    return known;
}

void Pause::TellChangedKeys(const std::set<int>& known) {
    events_.erase(std::remove_if(events_.begin() + static_cast<std::ptrdiff_t>(mark_), events_.end(), IsKeyNews),
                  events_.end());
    const std::set<int> down = view_.KeysDown();
    for (const int code : known) {
        if (!down.contains(code)) events_.push_back({InputEvent::Kind::keyUp, code});
    }
    for (const int code : down) {
        if (!known.contains(code)) events_.push_back({InputEvent::Kind::keyDown, code});
    }
}

void Pause::Paint(QPainter& painter) {
    constexpr int kWidth = 320, kHeight = 480, kWordSize = 40, kLine = 16, kTextSize = 12, kTop = 190;
    painter.fillRect(0, 0, kWidth, kHeight, QColor(0, 0, 0, 150));
    QFont font = painter.font();
    font.setBold(true);
    font.setPixelSize(kWordSize);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(QRect(0, kTop, kWidth, kWordSize + 8), Qt::AlignCenter, "PAUSE");
    font.setBold(false);
    font.setPixelSize(kTextSize);
    painter.setFont(font);
    int y = kTop + kWordSize + 2 * kLine;
    for (const std::string& line : {std::string("Go on: X, Z, Space, an arrow key or a click"), padHelp_}) {
        painter.drawText(QRect(0, y, kWidth, kLine), Qt::AlignCenter, QString::fromStdString(line));
        y += kLine + 4;
    }
}

}  // namespace desktop
