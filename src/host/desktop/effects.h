// The effects: one voice on the mixer of the sound device.
#pragma once

#include <SDL_mixer.h>

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "host/desktop/fluid_handles.h"

class Effects {
  public:
    // The device is open, and stays so for as long as this lives.
    Effects();
    ~Effects();
    Effects(const Effects&) = delete;
    Effects& operator=(const Effects&) = delete;

    // As PlayWave of host/audio.h.
    void Play(std::span<const std::uint8_t> wave);

  private:
    // A wave and what it sounds like on this device; no chunk: it cannot be played.
    struct Sound {
        std::vector<std::uint8_t> wave;
        std::unique_ptr<Mix_Chunk, Deleter<Mix_FreeChunk>> chunk;
    };
    Mix_Chunk* ChunkOf(std::span<const std::uint8_t> wave);

    std::vector<Sound> sounds_;  // the oldest first
};
