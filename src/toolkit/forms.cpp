#include "toolkit/forms.h"

#include <algorithm>
#include <cassert>

#include "host/window.h"

void RunTimer(Timer& timer, unsigned now) {
    if (!timer.started) {
        timer.started = true;
        timer.lastFired = now;
    }
    if (!timer.Enabled || now - timer.lastFired < static_cast<unsigned>(timer.Interval)) return;
    timer.lastFired = now;
    if (timer.Event) timer.Event();
}

Control& Form::operator[](std::string_view name) {
    const auto found = std::find_if(Controls.begin(), Controls.end(), [&](const Control& c) { return c.Name == name; });
    assert(found != Controls.end());
    return *found;
}

const Control& Form::operator[](std::string_view name) const {
    return const_cast<Form&>(*this)[name];
}

void OpenForm(Form& form) {
    if (form.Shown) return;
    form.Controls = form.Design();
    form.Focus.clear();
    if (form.Load) form.Load();
    ShowModal(form);
}

void SetScrollValue(Form& form, std::string_view name, int value) {
    Control& bar = form[name];
    value = std::clamp(value, bar.Min, bar.Max);
    if (value == bar.Value) return;
    bar.Value = value;
    if (bar.Event) bar.Event();
}

void ClickButton(Form& form, std::string_view name) {
    form.Focus = name;
    if (const Handler click = form[name].Event) click();
}

void TypeText(Form& form, std::string_view name, std::string_view text) {
    form.Focus = name;
    form[name].Text = text;
}
