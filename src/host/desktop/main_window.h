// The main window: the menu bar over the game screen.
#pragma once

#include <QtWidgets/QWidget>
#include <vector>

#include "host/desktop/menu_view.h"
#include "host/desktop/picture_view.h"

namespace desktop {

class MainWindow final : public QWidget {
  public:
    // Built from MainForm as it is now. What the player does goes to `events`, which outlives the window.
    explicit MainWindow(std::vector<InputEvent>& events);

    // Shows the window and returns when it is on the screen, so that the first picture is seen.
    void ShowOnScreen();

    PictureView& View() { return *view_; }
    MenuView& Menus() { return menus_; }

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    std::vector<InputEvent>& events_;
    QMenuBar* bar_;
    MenuView menus_;
    PictureView* view_;
};

}  // namespace desktop
