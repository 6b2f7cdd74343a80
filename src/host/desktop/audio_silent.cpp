// For builds without the sound libraries: silence, and one line that says so.
#include "host/audio.h"
#include "host/files.h"

namespace {

void TellOnce() {
    static bool told = false;
    if (!told) LogLine("this build has no sound");
    told = true;
}

}  // namespace

bool MusicOpen(const std::string&) {
    TellOnce();
    return false;
}

void MusicPlay() {}
void MusicStop() {}
void MusicRewind() {}
void MusicClose() {}

std::string_view MusicMode() { return {}; }

void PlayWave(std::span<const std::uint8_t>) { TellOnce(); }
