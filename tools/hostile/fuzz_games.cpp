// libFuzzer's way in: one game per input.
#include <cstddef>
#include <cstdint>

#include "hostile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string folder = MakeHostileFolder();
    constexpr int kFrames = 150;
    PlayHostileGame({data, size}, folder, kFrames);
    return 0;
}
