// Recordings: any text is refused or understood, and what was understood is written as it was read.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "recording/recording.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Recording read, again;
    if (!ParseRecording({reinterpret_cast<const char*>(data), size}, read).empty()) return 0;
    if (!ParseRecording(FormatRecording(read), again).empty() || again != read) std::abort();
    return 0;
}
