// Short forms for the rows of a window's design. Places are pixels; the number is the tab order.
#pragma once

#include "toolkit/forms.h"

namespace controls {

inline Control Label(const char* name, const char* caption, Place at, int tabIndex) {
    return {.Kind = ControlKind::label, .Name = name, .At = at, .TabIndex = tabIndex, .Caption = caption};
}

inline Control RightLabel(const char* name, const char* caption, Place at, int tabIndex) {
    Control label = Label(name, caption, at, tabIndex);
    label.RightAligned = true;
    return label;
}

inline Control TextField(const char* name, Place at, int tabIndex) {
    return {.Kind = ControlKind::textField, .Name = name, .At = at, .TabIndex = tabIndex, .Text = "0"};
}

inline Control Button(const char* name, const char* caption, Place at, int tabIndex, Handler click) {
    return {
        .Kind = ControlKind::button, .Name = name, .At = at, .TabIndex = tabIndex, .Caption = caption, .Event = click};
}

// From 0 to max; arrows and trough move by 1.
inline Control HScroll(const char* name, int max, Place at, int tabIndex, Handler change) {
    return {.Kind = ControlKind::hScroll, .Name = name, .At = at, .TabIndex = tabIndex, .Max = max, .Event = change};
}

inline Control VScroll(const char* name, int max, Place at, int tabIndex, Handler change) {
    Control bar = HScroll(name, max, at, tabIndex, change);
    bar.Kind = ControlKind::vScroll;
    return bar;
}

inline Control Frame(const char* name, const char* caption, Place at, int tabIndex) {
    return {.Kind = ControlKind::frame, .Name = name, .At = at, .TabIndex = tabIndex, .Caption = caption};
}

// Never has the keyboard.
inline Control Line(const char* name, Place at) {
    return {.Kind = ControlKind::line, .Name = name, .At = at, .TabIndex = -1};
}

// The control, placed relative to the frame of that name.
inline Control In(const char* frame, Control control) {
    control.Container = frame;
    return control;
}

}  // namespace controls
