// The menu bar in full screen: out of the way until Alt is pressed or the pointer touches the upper edge.
#pragma once

#include <QtCore/QObject>

class QMenuBar;

namespace desktop {

class PictureView;

class FullScreenBar final : public QObject {
  public:
    // Watches the view. Until Enter the bar is left alone.
    FullScreenBar(QMenuBar& bar, PictureView& view);

    void Enter();  // the bar belongs to no layout now
    void Leave();
    // Called at every yield: the bar goes when nothing needs it any more. `inUse`: a menu is open.
    void Tidy(bool inUse);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Show(bool shown);

    QMenuBar& bar_;
    PictureView& view_;
    bool active_ = false;
    bool pointed_ = false;  // the pointer came to the upper edge and has not gone far from it
    bool altDown_ = false;
};

}  // namespace desktop
