// Music, one MIDI file at a time, and the two sound effects. The "BGM" and "効果音" menu items gate them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "state/state.h"

// Closes what is open and opens `fileName` of the program's folder, stopped at its start. Clears BgmLoop. A file that
// is missing or cannot be played means silence.
void OpenMidi(std::string_view fileName);

// While "BGM" is off: nothing at all. Else plays from the current position; a true `loopIt` also sets BgmLoop, a false
// one leaves it.
void PlayMidi(Integer loopIt);

// Stops where it is and clears BgmLoop.
void StopMidi();

// Closes the music device and clears BgmLoop.
void CloseMidi();

// Every 1000 ms: restarts a looping piece that has run out.
void Bgm_Check_Timer();

// Plays Wave1Data or Wave2Data while "効果音" is on; cuts off the effect that still sounds.
void PlayEffect(const std::vector<Byte>& wave);

// The string commands of the music device, which is always called MIDI: "open "PATH" alias MIDI", "play MIDI",
// "play MIDI from 0", "stop MIDI", "seek MIDI to start", "close MIDI", "status MIDI mode"; a trailing "notify" has no
// effect. The answer of the status query, else empty. Commands to a closed device and unknown ones do nothing.
std::string_view mciSendStringA(std::string_view command);

// What the music device has been told, also while nothing was heard (unseen.h).
struct MusicNow {
    std::string path;  // of the open piece; empty: none
    bool playing = false;

    bool operator==(const MusicNow&) const = default;
};
const MusicNow& TheMusic();

// Brings the music device to that state, from the start of the piece. While nothing is heard it is only remembered.
void SetMusic(const MusicNow& wanted);
