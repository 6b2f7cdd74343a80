// For builds without the sound libraries: silence, and one line that says so.
#include "host/audio.h"

#include "host/desktop/audio_setup.h"
#include "host/files.h"

void SetSoundFont(const std::string&) {}
void StartAudio() {
    LogLine("this build has no sound");
}
void StopAudio() {}

bool MusicOpen(const std::string&) {
    return false;
}

void MusicPlay() {}
void MusicStop() {}
void MusicRewind() {}
void MusicClose() {}

std::string_view MusicMode() {
    return {};
}

void PlayWave(std::span<const std::uint8_t>) {}
