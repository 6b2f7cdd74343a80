#include "host/desktop/placing.h"

#include <QtCore/QElapsedTimer>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QLayout>

#include "host/desktop/waiting.h"

namespace desktop {

namespace {

void Centre(QWidget& window) {
    const QRect screen = window.screen()->geometry();
    const QSize size = window.frameGeometry().size();
    window.move(screen.x() + (screen.width() - size.width()) / 2, screen.y() + (screen.height() - size.height()) / 2);
}

void WaitUntilExposed(const QWidget& window) {
    constexpr int kPatience = 2000, kStep = 10;  // ms
    QElapsedTimer waited;
    waited.start();
    while (!window.windowHandle()->isExposed() && waited.elapsed() < kPatience) WaitForWindowEvents(kStep);
}

}  // namespace

// The frame's size is known only when the window is up, so it is placed twice: first nearly right, so that it does not
// jump visibly.
void ShowPlaced(QWidget& window, bool centred) {
    if (window.layout()) window.layout()->activate();
    window.adjustSize();
    if (centred) Centre(window);
    window.show();
    window.activateWindow();
    WaitUntilExposed(window);
    if (centred) Centre(window);
}

}  // namespace desktop
