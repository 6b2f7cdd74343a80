// The forms toolkit: windows as plain data. A form is a table of controls with their places and the handlers of their
// events; the desktop shows it with real widgets, a test types and clicks without a window system.
#pragma once

#include <string>
#include <string_view>
#include <vector>

using Handler = void (*)();

// One item of the menu bar. A caption "-" makes a separator line. Views follow this model: whoever changes it need not
// tell anybody.
struct MenuItem {
    const char* Name;
    const char* Caption;
    Handler Click = nullptr;
    bool IsPopup = false;  // holds the items listed after it, down to the next popup
    bool Checked = false;
    bool Enabled = true;

    bool IsSeparator() const { return std::string_view(Caption) == "-"; }
};

// Fires whenever a loop yields and Interval milliseconds have passed since it last fired (or since it was first seen).
struct Timer {
    int Interval;
    bool Enabled;
    Handler Event;
    bool started = false;
    unsigned lastFired = 0;
};

// Called by the host at every yield, also while a modal form is shown. Runs the timer's event if it is due at `now`
// (milliseconds of timeGetTime); a late timer fires once, not once per missed interval.
void RunTimer(Timer& timer, unsigned now);

enum class ControlKind { label, textField, button, hScroll, vScroll, frame, line };

// Pixels, relative to the form's client area, or to the frame for controls inside one.
struct Place {
    int Left;
    int Top;
    int Width;
    int Height;
};

struct Control {
    ControlKind Kind;
    std::string Name;  // "Text1"; members of a group carry their index: "Text1(0)"
    Place At;
    int TabIndex;
    std::string Caption{};    // of labels, buttons and frames; "&&" shows one ampersand
    std::string Text{};       // of text fields
    std::string Container{};  // name of the frame it lies in, or empty
    bool RightAligned = false;
    int Min = 0;  // of scroll bars; arrows and trough both move by SmallChange / LargeChange
    int Max = 0;
    int Value = 0;
    int SmallChange = 1;
    int LargeChange = 1;
    std::string Tip{};        // what a text field takes; shown when the mouse rests on it
    Handler Event = nullptr;  // Click of a button, Change of a scroll bar
};

struct Form {
    std::string Name;
    std::string Caption;
    int ClientWidth = 0;
    int ClientHeight = 0;
    Handler Load = nullptr;                      // Form_Load: runs each time the form is opened, before it is shown
    std::vector<Control> (*Design)() = nullptr;  // the controls as designed; each opening starts from them
    Handler Enter = nullptr;                     // Enter in a text field
    std::vector<Control> Controls{};
    std::string Focus{};   // control that has the keyboard; empty: the first in tab order
    bool Centred = false;  // Form_Load asked for the middle of the screen
    bool Shown = false;    // true while ShowModal runs; a handler that clears it closes the form

    // The control of that name. Asking for one the form does not have is a mistake in the program and asserts.
    Control& operator[](std::string_view name);
    const Control& operator[](std::string_view name) const;
};

// Builds the form afresh from its design, runs Form_Load, shows it modally and returns when it is closed.
void OpenForm(Form& form);

// Sets a scroll bar's value, clamped to Min..Max, and runs its Change handler if the value changed.
void SetScrollValue(Form& form, std::string_view name, int value);

// What a user does; also for tests. A click runs the button's handler (buttons without one do nothing). Typing replaces
// the text of a field. Both move the focus.
void ClickButton(Form& form, std::string_view name);
void TypeText(Form& form, std::string_view name, std::string_view text);
