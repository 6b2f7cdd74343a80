// One music device and one voice for effects. Everything here fails silently: no sound card, no file, no SoundFont mean
// silence and one line in the log, never a pause. No call blocks for longer than a small part of a frame.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

// Opens the MIDI file at `path`, stopped at its start. False when it cannot be played.
bool MusicOpen(const std::string& path);
// Plays on from the current position. At the end of a piece nothing more sounds.
void MusicPlay();
// Stops where it is.
void MusicStop();
// Back to the start, stopped.
void MusicRewind();
void MusicClose();
// "stopped", "playing", or "" while nothing is open. A piece that has run out is stopped.
std::string_view MusicMode();

// Plays a wave file image from memory and returns at once; cuts off the effect that still sounds. The bytes must stay
// in place only for the duration of the call. Bytes that are no wave file: silence.
void PlayWave(std::span<const std::uint8_t> wave);
