// The pause: the game waits in its yield until the player goes on. The game itself knows nothing of it: its clock
// stands still, and of the keys it is told afterwards only what has changed, so a recording is the same with and
// without.
#pragma once

#include <QtCore/QObject>
#include <set>
#include <string>
#include <vector>

#include "host/desktop/picture_layer.h"
#include "host/events.h"

class QKeyEvent;

namespace desktop {

class Joysticks;
class PictureView;

class Pause final : public QObject, private PictureLayer {
  public:
    // Watches the view's keys. `events` is where they go; it outlives the pause.
    Pause(PictureView& view, std::vector<InputEvent>& events);
    ~Pause() override;

    // Whether a game pauses by itself when the program loses the keyboard; on at first.
    void SetWhenLeft(bool whenLeft) { whenLeft_ = whenLeft; }

    // Whether there is a game to pause.
    static bool InGame();
    // Asks for a pause at the end of this yield. Outside of a game nothing happens.
    void Ask();

    // Called at every yield, after the window's events. Unless a pause was asked for it does nothing. Else it returns
    // when the player has gone on, one second after that, with the keys that have changed in the events; at once when
    // the window is closed.
    void Hold(Joysticks& joysticks);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    enum class Phase { none, asked, standing, goingOn };
    void Paint(QPainter& painter) override;
    void Stand(Joysticks& joysticks);
    void GoOn();
    std::set<int> KeysTheGameKnows() const;
    void TellChangedKeys(const std::set<int>& known);
    bool Came(InputEvent::Kind kind) const;
    bool Closing() const;
    bool TakeKey(const QKeyEvent& event);

    PictureView& view_;
    std::vector<InputEvent>& events_;
    bool whenLeft_ = true;
    Phase phase_ = Phase::none;
    std::size_t mark_ = 0;  // events from here on came during the pause
    std::string padHelp_;   // what the pad's buttons do; empty: no pad
};

}  // namespace desktop
