// Whether the picture has changed since it was last shown.
#pragma once

#include <cstdint>
#include <vector>

#include "host/desktop/scaling.h"

namespace desktop {

// A moving picture is recognised by its first rows and only they are kept; a whole copy is kept only of a picture that
// seems to stand still. So neither costs more than one look at it.
class ChangeWatch {
  public:
    // Whether the picture differs from the one of the last call.
    bool Differs(const PicturePixels& picture);

  private:
    bool KeptRowsAreIn(const PicturePixels& picture) const;
    void Keep(const PicturePixels& picture, int rows);

    std::vector<std::uint32_t> kept_;
    int width_ = 0;
    int height_ = 0;
    int rows_ = 0;  // how many are kept, from the top
};

}  // namespace desktop
