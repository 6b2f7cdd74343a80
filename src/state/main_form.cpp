#include "state/main_form.h"

#include "host/clock.h"

MenuItem* FindMenuItem(std::string_view name) {
    for (auto member : kMenuBar) {
        if (name == (MainForm.*member).Name) return &(MainForm.*member);
    }
    return nullptr;
}

MenuItem* PopupOf(const MenuItem& item) {
    MenuItem* popup = nullptr;
    for (auto member : kMenuBar) {
        MenuItem& candidate = MainForm.*member;
        if (&candidate == &item) return item.IsPopup ? nullptr : popup;
        if (candidate.IsPopup) popup = &candidate;
    }
    return nullptr;
}

bool ClickMenu(MenuItem& item) {
    const MenuItem* popup = PopupOf(item);
    if (!item.Click || !item.Enabled || (popup && !popup->Enabled)) return false;
    item.Click();
    return true;
}

void EnableAuthorMenus() {
    MainForm.Menu003.Enabled = true;
    MainForm.Menu200.Enabled = true;
}

void RunTimers() {
    RunTimer(MainForm.Bgm_Check, timeGetTime());
}
