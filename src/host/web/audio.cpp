// Music and effects are the page's; music by the name of the piece, which it has as a sound file.
#include "host/audio.h"

#include <emscripten/val.h>

#include "host/web/page.h"

using web::Page;

bool MusicOpen(const std::string& path) {
    return Page().call<bool>("musicOpen", path.substr(path.rfind('/') + 1));
}

void MusicPlay() {
    Page().call<void>("musicPlay");
}

void MusicStop() {
    Page().call<void>("musicStop");
}

void MusicRewind() {
    Page().call<void>("musicRewind");
}

void MusicClose() {
    Page().call<void>("musicClose");
}

std::string_view MusicMode() {
    static std::string mode;
    mode = Page().call<std::string>("musicMode");
    return mode;
}

void PlayWave(std::span<const std::uint8_t> wave) {
    Page().call<void>("playWave", emscripten::val(emscripten::typed_memory_view(wave.size(), wave.data())));
}
