#include "host/web/picture.h"

#include <emscripten/val.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "host/web/page.h"
#include "toolkit/surface.h"

namespace {

std::vector<Color> shown;          // the surface's pixels
std::vector<std::uint32_t> bytes;  // the same as the browser wants them: red first, opaque

std::uint32_t OpaqueRedFirst(Color color) {
    constexpr std::uint32_t kOpaque = 0xFF000000u;
    return kOpaque | (color & 0xFFu) << 16 | (color & 0xFF00u) | (color >> 16 & 0xFFu);
}

}  // namespace

void web::ShowPicture(const Surface& surface) {
    if (surface.image == shown) return;
    shown = surface.image;
    bytes.resize(shown.size());
    std::transform(shown.begin(), shown.end(), bytes.begin(), OpaqueRedFirst);
    const emscripten::val view(emscripten::typed_memory_view(bytes.size() * sizeof(std::uint32_t),
                                                             reinterpret_cast<const std::uint8_t*>(bytes.data())));
    Page().call<void>("show", view, surface.imageWidth, surface.imageHeight);
}
