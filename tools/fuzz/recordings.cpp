// Recordings, runs and links: any text is refused or understood, and what was understood is written as it was read. Any
// bytes are taken for a packed run, and for what a link holds, without harm.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>

#include "recording/link.h"
#include "recording/recording.h"
#include "recording/run.h"
#include "toolkit/base64.h"
#include "toolkit/deflate.h"

namespace {

void TryRun(std::string_view text) {
    Run read, again;
    if (!ParseRun(text, read).empty()) return;
    if (!ParseRun(FormatRunHead(read) + FormatRecording(read.recording), again).empty() || again != read) std::abort();
}

void TryRecording(std::string_view text) {
    Recording read, again;
    if (!ParseRecording(text, read).empty()) return;
    if (!ParseRecording(FormatRecording(read), again).empty() || again != read) std::abort();
}

void TryLink(std::string_view word) {
    Recording read, again;
    if (!ParseLink(word, read).empty()) return;
    const std::string link = LinkOf(read);
    if (!link.empty() && (!ParseLink(link, again).empty() || again != read)) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    Run packed;
    if (LooksLikeRun({data, size})) static_cast<void>(UnpackRun({data, size}, packed));
    TryRun(text);
    TryRecording(text);
    TryLink(text);
    TryLink("A" + Base64Url(Deflate(std::span(data, size))));
    return 0;
}
