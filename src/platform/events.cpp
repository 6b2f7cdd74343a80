#include "platform/events.h"

#include "host/clock.h"
#include "platform/input_state.h"
#include "shell/main_form.h"

namespace {

EventTap eventTap = nullptr;

void Deliver(const InputEvent& event) {
    if (event.kind == InputEvent::Kind::closeWindow) {
        Form_Unload();
    } else if (event.kind == InputEvent::Kind::menu) {
        if (MenuItem* item = FindMenuItem(event.item)) ClickMenu(*item);
    } else {
        ApplyInput(event);
    }
}

}  // namespace

void SetEventTap(EventTap tap) {
    eventTap = tap;
}

EventTap GetEventTap() {
    return eventTap;
}

void RunTimers() {
    RunTimer(MainForm.Bgm_Check, timeGetTime());
}

void DoEvents() {
    std::vector<InputEvent> events;
    PumpHost(events);
    if (eventTap) eventTap(events);
    RunTimers();
    for (const InputEvent& event : events) Deliver(event);
}
