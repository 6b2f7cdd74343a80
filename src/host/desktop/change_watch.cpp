#include "host/desktop/change_watch.h"

#include <algorithm>

namespace desktop {

bool ChangeWatch::Differs(const PicturePixels& picture) {
    constexpr int kFewRows = 16;
    if (!KeptRowsAreIn(picture)) {
        Keep(picture, std::min(kFewRows, picture.height));
        return true;
    }
    if (rows_ == picture.height) return false;
    Keep(picture, picture.height);
    return true;
}

bool ChangeWatch::KeptRowsAreIn(const PicturePixels& picture) const {
    if (picture.width != width_ || picture.height != height_) return false;
    for (int y = 0; y < rows_; ++y) {
        const std::uint32_t* row = picture.Row(y);
        if (!std::equal(row, row + width_, kept_.data() + static_cast<std::ptrdiff_t>(y) * width_)) return false;
    }
    return true;
}

void ChangeWatch::Keep(const PicturePixels& picture, int rows) {
    width_ = picture.width, height_ = picture.height, rows_ = rows;
    kept_.resize(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_));
    for (int y = 0; y < rows; ++y) {
        std::copy_n(picture.Row(y), width_, kept_.data() + static_cast<std::ptrdiff_t>(y) * width_);
    }
}

}  // namespace desktop
