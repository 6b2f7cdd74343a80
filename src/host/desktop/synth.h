// The instrument the music is played on: FluidSynth with one SoundFont, rendered by hand. One thread at a time.
#pragma once

#include <memory>
#include <span>
#include <string>

#include "host/desktop/fluid_handles.h"

// A MIDI channel message. `type` is the status byte without its channel.
struct MidiMessage {
    int type;
    int channel;
    int first;   // key, controller, program, or bend of 0..16383
    int second;  // velocity or value
};

class Synth {
  public:
    // Null when the SoundFont cannot be loaded. Reads the whole SoundFont: not for a loop that draws frames.
    static std::unique_ptr<Synth> Load(const std::string& soundFont, int rate);

    void Send(const MidiMessage& message);

    // Lifts all keys and pedals; what sounds rings out.
    void ReleaseAll();

    // Ends all sound within the next frames rendered, too fast to be heard as a fade, too slow to click. Programs and
    // controllers stay.
    void Silence();

    // Silence, and then every channel as it is when switched on.
    void Reset();

    // Still busy with Silence or Reset: messages sent now would be lost.
    bool Fading() const { return fadeLeft_ > 0; }

    // Fills `stereo` with the next frames, left and right in turn.
    void Render(std::span<float> stereo);

  private:
    Synth(int rate, FluidSettings settings, FluidSynth synth);
    void FadeOut(std::span<float> stereo);
    void EndFade();

    FluidSettings settings_;
    FluidSynth synth_;
    int fadeFrames_;
    int fadeLeft_ = 0;
    bool resetAfterFade_ = false;
};
