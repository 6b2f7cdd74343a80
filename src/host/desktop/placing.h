// Where windows come up, and what frame they have.
#pragma once

#include <QtWidgets/QWidget>

namespace desktop {

// A fixed single border: not resizable, with a close button and neither maximise nor minimise button.
inline constexpr Qt::WindowFlags kFixedWindow = Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                                Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint |
                                                Qt::MSWindowsFixedSizeDialogHint;

// Shows the window, its frame in the middle of the screen if `centred`, and returns when it is on the screen (or after
// two seconds, when the window system does not say so).
void ShowPlaced(QWidget& window, bool centred);

}  // namespace desktop
