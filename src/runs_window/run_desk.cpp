#include "runs_window/run_desk.h"

#include <utility>

#include "host/window.h"
#include "platform/events.h"
#include "runs_window/film_show.h"
#include "shell/game_loop.h"

namespace runs_window {

namespace {

RunDesk* desk = nullptr;
EventTap below = nullptr;  // what records games

}  // namespace

RunDesk::RunDesk(desktop::Host& host) : host_(host) {
    host_.extras.push_back({"Runs", QKeySequence(Qt::Key_F2), [this] { OpenList(); }});
    desk = this;
    below = GetEventTap();
    SetEventTap(Tap);
}

RunDesk::~RunDesk() {
    desk = nullptr;
    if (GetEventTap() == Tap) SetEventTap(below);
}

void RunDesk::Ask(Deed deed, const std::string& path) {
    wish_ = {deed, path};
}

// While a game is played it stays closed; a film is left for it.
void RunDesk::OpenList() {
    if (film_) film_->Leave();
    if (!film_ && desktop::Pause::InGame()) return;
    if (!list_) list_ = std::make_unique<RunsWindow>([this](Deed deed, const std::string& path) { Ask(deed, path); });
    list_->Come();
}

void RunDesk::Tap(std::vector<InputEvent>& events) {
    const bool title = !desktop::Pause::InGame();
    if (desk->race_ && desk->race_->IsOver(title)) desk->race_.reset();
    if (title && desk->wish_) {
        const Wish wish = *std::exchange(desk->wish_, std::nullopt);
        desk->Do(wish);
        events.clear();
    }
    if (below) below(events);
}

void RunDesk::Do(const Wish& wish) {
    Recording recording;
    const std::string error = ReadRecording(wish.path, recording);
    if (!error.empty()) return MsgBox(error, "Tarnveil");
    if (wish.deed == Deed::race) {
        race_.emplace(host_, recording);
        return;
    }
    FilmShow show(host_, recording);
    film_ = &show;
    struct Forget {
        FilmShow*& film;
        ~Forget() { film = nullptr; }
    } const forget{film_};
    show.Run(wish.deed == Deed::takeOver);
}

}  // namespace runs_window
