// The visible game screen: the game's picture at a whole multiple of its size inside a sunken border (in full screen:
// amid black), and the keyboard while it has the focus.
#pragma once

#include <QtGui/QImage>
#include <QtWidgets/QWidget>
#include <optional>
#include <set>
#include <vector>

#include "host/desktop/calm.h"
#include "host/desktop/change_watch.h"
#include "host/desktop/key_map.h"
#include "host/desktop/picture_layer.h"
#include "host/desktop/scaling.h"

struct Surface;

namespace desktop {

class PictureView final : public QWidget {
  public:
    // Shows `surface`, which outlives the view, as do `events`, to which the key events go. The surface changes only
    // while no window events are taken, so a repaint never shows a half-drawn picture.
    PictureView(const Surface& surface, std::vector<InputEvent>& events, QWidget* parent);

    // Paints the picture at once if it has changed.
    void Show();
    // Paints it in any case: a layer has changed.
    void ShowAgain() { repaint(); }

    // The window takes the size in which every pixel of the picture is `times` x `times` pixels of the screen.
    void SetTimes(int times);
    // The view takes the size it is given, without a border: the largest whole multiple, or with `fit` the largest
    // size.
    void FillScreen(bool fit);
    // The size of the view in pixels of the screen, at that multiple.
    QSize SizeAt(int times) const;

    // Flashes are softened from now on.
    void SetCalm(bool calm);
    // Another widget lies over the view.
    void SetCovered(bool covered) { covered_ = covered; }

    // The virtual keys that are down.
    std::set<int> KeysDown() const { return keyboard_.Down(); }

    // Called at each yield: a key whose release was lost on the way comes up.
    void LetGoOfLostKeys();

    // Drawn over the picture, the first at the bottom. The layer outlives its stay.
    void Add(PictureLayer& layer);
    void Remove(PictureLayer& layer);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool) override { return false; }

  private:
    // Everything in pixels of the screen, counted from the view's corner.
    struct Sight {
        QPoint corner;  // of the view, on what is painted on
        QSize size;
        Box picture;
    };
    Sight See(QPointF corner) const;
    PicturePixels Picture() const;
    int Border() const;
    QRect PictureRect() const;
    bool ShowStraight();
    bool DrawInto(QPaintDevice& device, QPoint place);
    void PaintSurroundings(QPainter& painter, const Sight& sight) const;
    void PaintPicture(QPainter& painter, const Sight& sight);
    void PaintLayers(QPainter& painter, const Sight& sight);

    const Surface& surface_;
    ChangeWatch changes_;
    std::optional<CalmPicture> calm_;
    Scaler scaler_;
    bool bordered_ = true;
    bool fit_ = false;
    bool covered_ = false;
    std::vector<PictureLayer*> layers_;
    Keyboard keyboard_;
    bool knowsKeysDown_ = false;  // the window system said which keys are down when the keyboard came back
    std::vector<InputEvent>& events_;
};

}  // namespace desktop
