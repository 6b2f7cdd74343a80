// Small sound files made for a test, so that what should be heard is known exactly.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

using Bytes = std::vector<std::uint8_t>;

// One part of a tune: `key` (MIDI, 69 is 440 Hz; 0 is a rest) for `seconds`, in quarters of 0.5 s.
struct Note {
    int key;
    double seconds;
};

constexpr int kOcarina = 79;      // nearly a pure tone: its pitch is easy to tell
constexpr int kUsualVolume = -1;  // the file does not set it

// A MIDI file that plays the notes one after the other, each at full velocity, and ends with the last.
Bytes Tune(const std::vector<Note>& notes, int volume = kUsualVolume);

// A MIDI file around the events of its one track.
Bytes MidiFile(const Bytes& track);

// A wave file: a tone of `hertz`, 16-bit mono; `level` 1 is full scale.
Bytes Tone(double hertz, double seconds, double level);

void WriteBytes(const std::string& path, const Bytes& bytes);
