// Fixture of the tests that listen: the real sound code in a fresh folder, its device a tape.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "sound_files.h"
#include "tape.h"
#include "temporary_folder.h"

constexpr const char* kSoundFont = "/usr/share/sounds/sf2/TimGM6mb.sf2";
constexpr double kSpeed = 5;
constexpr double kSlack = 0.2;  // seconds of tape between a call and what follows from it, on a busy machine
constexpr double kSilent = 0.0005;

// Nothing is started yet.
class AudioTest : public testing::Test {
  protected:
    AudioTest();
    ~AudioTest() override;

    // A file in the program's folder.
    void Put(const std::string& name, const Bytes& bytes);

    // What the program has logged since the last call.
    static std::vector<std::string> TakeLog();

    // Lets the tape run with the game's timer on the tape's clock.
    void RunWithTimer(double seconds);

    const TemporaryFolder temporary;
    const std::filesystem::path& folder = temporary.path;
    const Tape tape;
};

// With the sound started; skipped where the SoundFont is not installed.
class SoundTest : public AudioTest {
  protected:
    void SetUp() override;
};

// What the ear cannot tell from one longer note counts as one.
std::vector<int> WithoutRepeats(std::vector<int> keys);

inline const std::vector<Note> kScale = {{69, 0.5}, {71, 0.5}, {73, 0.5}, {74, 0.5},
                                         {76, 0.5}, {78, 0.5}, {80, 0.5}, {81, 0.5}};
inline const std::vector<int> kScaleKeys = {69, 71, 73, 74, 76, 78, 80, 81};
