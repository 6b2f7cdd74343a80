// A MIDI file with its place: FluidSynth reads the file and keeps the time. The player drives a clock of its own, a
// synthesizer without voices, so a piece can be read in the background, stands still while nobody advances it, and
// never touches the instrument that is heard.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "host/desktop/synth.h"

class MidiPiece {
  public:
    // At its start. Null when FluidSynth cannot read it. Up to 100 ms for the largest files: not for a loop that draws
    // frames; nor is the destructor.
    static std::unique_ptr<MidiPiece> Read(std::span<const std::uint8_t> file, int rate);

    MidiPiece(const MidiPiece&) = delete;
    MidiPiece& operator=(const MidiPiece&) = delete;

    // What the instrument is to be sent now. The time goes on by kBlockFrames; the answer holds until the next call.
    std::span<const MidiMessage> Advance();

    // The last event, the end of the longest track, is past.
    bool Ended() const;

  private:
    explicit MidiPiece(int rate);
    static int Collect(void* piece, fluid_midi_event_t* event);
    bool Open(std::span<const std::uint8_t> file);
    void Tick();

    FluidSettings settings_;
    FluidSynth clock_;
    FluidPlayer player_;
    std::vector<MidiMessage> due_;
    int length_ = 0;        // ticks
    bool unheard_ = false;  // the messages of the very start, that reading the file brought with it
};
