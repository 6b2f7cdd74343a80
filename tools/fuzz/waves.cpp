// Wave files: any file is silence or a sound, on a device that swallows everything.
#include <SDL.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "host/desktop/effects.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Effects& effects = *[] {
        setenv("SDL_AUDIODRIVER", "dummy", 1);
        if (SDL_Init(SDL_INIT_AUDIO) != 0 || Mix_OpenAudio(44100, AUDIO_S16SYS, 2, 1024) != 0) std::abort();
        return new Effects;  // lives as long as the program
    }();
    effects.Play({data, size});
    return 0;
}
