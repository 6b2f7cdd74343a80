// How the player wants the window, from the command line or from last time. None of it reaches the game.
#pragma once

#include <QtCore/QPoint>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <optional>

class QScreen;

namespace desktop {

struct Showing {
    int times = 0;  // pixels of the screen per pixel of the picture, each way; 0: as many as fit
    bool fullScreen = false;
    bool fit = false;             // in full screen: as large as it gets, not only whole multiples
    bool calm = false;            // flashes are softened
    bool kept = true;             // changes are for the next run too
    std::optional<QPoint> place;  // of the window's frame; none: where the game wants it
};

// The largest multiple at which a picture with `around` beside it (borders, menu bar, the window's frame) fits into
// `room`; at least 1. All sizes in pixels of the screen.
int LargestTimes(QSize picture, QSize around, QSize room);

// What was kept on an earlier run; the defaults where nothing was, where it makes no sense, or where the screen it was
// kept for is gone.
Showing RecallShowing();

// Keeps it for the next run, for a window on `screen`. What cannot be written is forgotten.
void RememberShowing(const Showing& showing, const QScreen& screen);

}  // namespace desktop
