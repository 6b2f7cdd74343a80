// What the host draws over the game's picture. The picture itself is never touched.
#pragma once

#include <QtGui/QPainter>

namespace desktop {

class PictureLayer {
  public:
    virtual ~PictureLayer() = default;

    // Called whenever the picture is painted. The painter's units are the picture's pixels, whatever the scale; what
    // lies outside the picture is cut off.
    virtual void Paint(QPainter& painter) = 0;
};

}  // namespace desktop
