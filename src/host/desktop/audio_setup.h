// The sound of the desktop program, for main: which SoundFont, and when the device is open. Without StartAudio
// everything in host/audio.h is silence.
#pragma once

#include <string>

// The SoundFont to play music with, before StartAudio. Empty or never called: the environment variable
// TARNVEIL_SOUNDFONT, else the one the system has installed.
void SetSoundFont(const std::string& path);

// Opens the sound device and begins to load the SoundFont in the background. Music that is asked for meanwhile starts
// when it is there.
void StartAudio();

// Ends all sound and closes the device. Safe when nothing was started.
void StopAudio();
