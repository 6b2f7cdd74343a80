// The calm picture: what is shown instead of the game's while the player wants softer flashes.
#pragma once

#include <cstdint>
#include <vector>

#include "host/desktop/scaling.h"

namespace desktop {

class CalmPicture {
  public:
    // Follows the game's picture: exactly, unless its brightness as a whole jumps; then only so far that the jump stays
    // below what is felt as a flash, and the rest of the way in the next calls. Called once for every picture shown.
    void Follow(const PicturePixels& picture);

    // Whether it shows the picture of the last call exactly. Until it does, Follow has more to do.
    bool HasArrived() const { return arrived_; }

    // The calm picture.
    PicturePixels Pixels() const;

  private:
    // Mean brightness of a picture, 0..1: of the light it sends out, and as the eye takes it.
    struct Brightness {
        double light = 0;
        double felt = 0;
    };
    Brightness BrightnessAt(const PicturePixels& picture, unsigned weight) const;
    std::uint32_t Mixed(std::uint32_t shown, std::uint32_t wanted, unsigned weight) const;
    bool IsCalm(const Brightness& next) const;
    unsigned LargestCalmWeight(const PicturePixels& picture) const;

    std::vector<std::uint32_t> shown_;
    int width_ = 0;
    int height_ = 0;
    Brightness brightness_;  // of shown_
    bool arrived_ = false;
};

}  // namespace desktop
