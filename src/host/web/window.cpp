// The window functions of the game's host, in a page.
#include "host/window.h"

#include <emscripten/val.h>

#include "host/events.h"
#include "host/files.h"
#include "host/web/form.h"
#include "host/web/menus.h"
#include "host/web/page.h"
#include "host/web/picture.h"
#include "state/main_form.h"
#include "state/state.h"
#include "toolkit/surface.h"

using emscripten::val;
using web::Give;
using web::Page;
using web::Turn;

namespace {

using Kind = InputEvent::Kind;

// One event of the page: {kind, code, x, y, buttons, item}, the kinds numbered as here.
constexpr Kind kKinds[] = {Kind::keyDown,     Kind::keyUp, Kind::allKeysUp,  Kind::joystick,
                           Kind::joystickOff, Kind::menu,  Kind::closeWindow};

InputEvent EventOf(const val& told) {
    InputEvent event{kKinds[told["kind"].as<unsigned>() % std::size(kKinds)]};
    event.code = told["code"].as<int>();
    event.x = told["x"].as<std::uint32_t>();
    event.y = told["y"].as<std::uint32_t>();
    event.buttons = told["buttons"].as<std::uint32_t>();
    event.item = told["item"].as<std::string>();
    return event;
}

// Steering by touch needs to know where the ship is.
void TakePageEvents(std::vector<InputEvent>& events) {
    const val taken = Page().call<val>("takeEvents", game.MyX, game.MyY, game.MySpeed);
    const auto count = taken["length"].as<unsigned>();
    for (unsigned i = 0; i < count; ++i) events.push_back(EventOf(taken[i]));
}

void StandStill() {
    Give(Turn::step);
    RunTimers();
}

}  // namespace

void ShowMainForm() {
    web::BuildMenus();
    web::SyncMenus();
    Page().call<void>("showWindow", MainForm.Caption);
}

void ShowNow(const Surface& surface) {
    if (!surface.Visible) return;
    web::ShowPicture(surface);
    Give(Turn::refresh);
}

void PumpHost(std::vector<InputEvent>& events) {
    web::SyncMenus();
    web::ShowPicture(MainForm.Crt);
    Give(Turn::events);
    while (Page().call<bool>("standsStill")) StandStill();
    TakePageEvents(events);
}

void ShowModal(Form& form) {
    const web::FormOnPage shown(form);
    while (form.Shown) {
        StandStill();
        shown.CarryOut();
    }
}

void MsgBox(const std::string& text, const std::string& caption) {
    web::FormOnPage::SyncTop();  // what the message is about must be seen
    Page().call<void>("openBox", text, caption);
    while (Page().call<bool>("boxIsOpen")) StandStill();
}

void LogLine(const std::string& line) {
    Page().call<void>("log", line);
}
