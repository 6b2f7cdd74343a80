// The main window: the menu bar over the game screen, at a whole multiple of its size or in full screen.
#pragma once

#include <QtWidgets/QWidget>
#include <vector>

#include "host/desktop/edge_drag.h"
#include "host/desktop/full_screen_bar.h"
#include "host/desktop/menu_view.h"
#include "host/desktop/pause.h"
#include "host/desktop/picture_view.h"
#include "host/desktop/showing.h"

class QMenu;

namespace desktop {

class MainWindow final : public QWidget {
  public:
    // Built from MainForm as it is now. What the player does goes to `events`, which outlives the window.
    MainWindow(std::vector<InputEvent>& events, const Showing& showing);
    ~MainWindow() override;

    // Shows the window and returns when it is on the screen, so that the first picture is seen.
    void ShowOnScreen();

    // How it is shown now. Changes take effect at once and are kept for the next run.
    const Showing& HowShown() const { return showing_; }
    // At most what fits on the screen; 0: that. Leaves full screen.
    void SetTimes(int times);
    void SetFullScreen(bool fullScreen);
    void SetFit(bool fit);
    void SetCalm(bool calm);

    // Called at every yield, after the window's events.
    void Tidy();

    PictureView& View() { return *view_; }
    MenuView& Menus() { return menus_; }
    Pause& Pausing() { return pause_; }

  protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    void AddKeys();
    void ApplyWindowed();
    void ApplyFullScreen();
    int LargestTimesHere() const;
    void MoveOntoScreen();
    void Remember() const;
    void AddTimes(QMenu& menu);

    std::vector<InputEvent>& events_;
    QMenuBar* bar_;
    MenuView menus_;
    PictureView* view_;
    Showing showing_;
    FullScreenBar fullScreenBar_;
    EdgeDrag edgeDrag_;
    Pause pause_;
    double ratio_ = 1;  // pixels of the screen per unit of the window, as the size was set for
};

}  // namespace desktop
