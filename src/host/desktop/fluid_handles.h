// FluidSynth's objects as owners, and one quiet log: what goes wrong is told once, by the caller who knows the file.
#pragma once

#include <fluidsynth.h>

#include <memory>

template <auto Delete>
struct Deleter {
    template <typename T>
    void operator()(T* object) const {
        Delete(object);
    }
};

// Declare them in this order: each is used by the next one until that is gone.
using FluidSettings = std::unique_ptr<fluid_settings_t, Deleter<delete_fluid_settings>>;
using FluidSynth = std::unique_ptr<fluid_synth_t, Deleter<delete_fluid_synth>>;
using FluidPlayer = std::unique_ptr<fluid_player_t, Deleter<delete_fluid_player>>;

// FluidSynth counts time, and starts and ends notes, in steps of this many frames.
constexpr int kBlockFrames = 64;

// Settings of a synthesizer that is rendered by hand: `rate` in Hz, at most `voices` notes at once, no effects.
FluidSettings MakeFluidSettings(int rate, int voices);
