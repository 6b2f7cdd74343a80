// The window system: the one main window, message boxes and modal forms.
#pragma once

#include <exception>
#include <string>
#include <utility>

struct Form;
struct Surface;

// Thrown where a loop yields when the player quits or closes the window, and where the game cannot go on; only main
// catches it. Nothing is saved on the way.
struct EndProgram : std::exception {
    explicit EndProgram(int exitStatus = 0, std::string why = "the player has left the program")
        : status(exitStatus), reason(std::move(why)) {}
    const char* what() const noexcept override { return reason.c_str(); }

    int status;
    std::string reason;
};

// Builds the main window from `MainForm` and shows it. Called once, by Main, after Form_Load. Joysticks that are there
// have reported when it returns.
void ShowMainForm();

// Puts the picture of `surface` on the screen now, without taking events, for at least one refresh of the display.
// Only Crt is ever shown; for a hidden surface nothing happens.
void ShowNow(const Surface& surface);

// Shows `form` and returns when it is closed. Its handlers run inside. The loop that yielded waits meanwhile.
void ShowModal(Form& form);

// A box with one OK button; returns when it is pressed. Works before the main window exists too.
void MsgBox(const std::string& text, const std::string& caption);
