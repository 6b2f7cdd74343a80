#include "platform/events.h"

#include "platform/unseen.h"
#include "state/main_form.h"
#include "toolkit/input_state.h"

namespace {

EventTap eventTap = nullptr;

void Deliver(const InputEvent& event) {
    if (event.kind == InputEvent::Kind::closeWindow) {
        if (MainForm.Unload) MainForm.Unload();
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

void DoEvents() {
    std::vector<InputEvent> events;
    if (!unseen) PumpHost(events);
    if (eventTap) eventTap(events);
    if (!unseen) RunTimers();
    for (const InputEvent& event : events) Deliver(event);
}
