// Pictures: any file is refused with a reason or gives all its pixels, and is drawn.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "toolkit/resources.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string reason;
    const Picture picture = DecodePicture({data, size}, reason);
    if (picture.pixels.size() != static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height))
        std::abort();
    if (picture.pixels.empty() == reason.empty()) std::abort();
    static Surface sheet, screen = [] {
        Surface made;
        Resize(made, 64, 64);
        return made;
    }();
    sheet.imageWidth = picture.width, sheet.imageHeight = picture.height, sheet.image = picture.pixels;
    BlitSprite(screen, 3, 3, 40, 40, sheet, {0, 40}, {0, 0});
    return 0;
}
