// The classic look: flat grey windows with bevelled edges, whatever the desktop's own theme.
#pragma once

#include <QtWidgets/QApplication>

namespace desktop {

// Style, colours and font of every window.
void ApplyLook();

}  // namespace desktop
