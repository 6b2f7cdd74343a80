// Recordings and runs: any text is refused or understood, and what was understood is written as it was read. Any bytes
// are taken for a packed run without harm.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "recording/recording.h"
#include "recording/run.h"

namespace {

void TryRun(std::string_view text) {
    Run read, again;
    if (!ParseRun(text, read).empty()) return;
    if (!ParseRun(FormatRunHead(read) + FormatRecording(read.recording), again).empty() || again != read) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    Run packed;
    if (LooksLikeRun({data, size})) static_cast<void>(UnpackRun({data, size}, packed));
    TryRun(text);
    Recording read, again;
    if (!ParseRecording(text, read).empty()) return 0;
    if (!ParseRecording(FormatRecording(read), again).empty() || again != read) std::abort();
    return 0;
}
