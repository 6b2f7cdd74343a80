// What is missing or broken means silence and one line in the log, and the rest goes on.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "audio_fixture.h"
#include "host/audio.h"
#include "host/desktop/audio_setup.h"
#include "platform/music.h"

namespace {

// The reader finds out in the background and in its own time; long before 10 s.
void AwaitClosedMusic() {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!MusicMode().empty() && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

}  // namespace

TEST_F(SoundTest, FilesThatCannotBePlayedMeanSilenceAndOneLine) {
    Bytes torn = Tune(kScale);
    torn.resize(30);
    Bytes large = Tune(kScale);
    large.resize((4u << 20) + 1);
    Put("torn.mid", torn);
    Put("text.mid", {'h', 'e', 'l', 'l', 'o'});
    Put("empty.mid", {});
    Put("large.mid", large);
    std::filesystem::create_directory(folder / "folder.mid");
    for (const char* name : {"torn.mid", "text.mid", "empty.mid", "large.mid", "folder.mid", "missing.mid"}) {
        const double from = tape.Now();
        TakeLog();
        OpenMidi(name);
        PlayMidi(True);
        AwaitClosedMusic();
        tape.Run(1);
        EXPECT_EQ("", MusicMode()) << name;
        const auto log = TakeLog();
        ASSERT_EQ(1u, log.size()) << name;
        EXPECT_NE(std::string::npos, log[0].find(name));
        EXPECT_LT(tape.Loudness(from, tape.Now()), kSilent) << name;
    }
    Put("good.mid", Tune(kScale));
    OpenMidi("good.mid");
    PlayMidi(True);
    EXPECT_EQ(69, Keys(tape.Notes(tape.RunUntilHeard())).at(0)) << "the next piece plays";
}

TEST_F(SoundTest, AFloodOfNotesHoldsUpNeitherTheDeviceNorTheNextPiece) {
    using Clock = std::chrono::steady_clock;
    Bytes flood = {0, 0x90, 60, 64};
    while (flood.size() < 4'000'000) flood.insert(flood.end(), {0, 60, 64});
    flood.insert(flood.end(), {0, 0xff, 0x2f, 0});
    Put("flood.mid", MidiFile(flood));
    Put("good.mid", Tune(kScale));
    tape.Run(1);
    OpenMidi("flood.mid");
    PlayMidi(True);
    double longest = 0;
    tape.Run(2.5, [&] {
        const auto before = Clock::now();
        MusicMode();
        longest = std::max(longest, std::chrono::duration<double>(Clock::now() - before).count());
    });
    EXPECT_LT(longest, 0.3) << "seconds; the game would have stood still for so long";
    EXPECT_NE("", MusicMode());
    OpenMidi("good.mid");
    PlayMidi(False);
    tape.Run(kSlack);
    const double start = tape.RunUntilHeard();
    tape.Run(1.1);
    const auto keys = Keys(tape.Notes(start));
    EXPECT_TRUE(std::ranges::includes(kScaleKeys, keys)) << "nothing of the flood is left";
    EXPECT_GE(keys.size(), 2u);
}

TEST_F(SoundTest, WhatIsNoWaveFileIsSilenceToo) {
    constexpr double kTone = 2300;
    PlayEffect(Tone(kTone, 10, 0.5));
    tape.Run(0.5);
    EXPECT_GT(tape.Loudness(tape.Now() - 0.2, tape.Now()), 0.1);
    TakeLog();
    Bytes torn = Tone(kTone, 1, 0.5);
    torn.resize(30);
    PlayEffect(torn);
    PlayEffect(torn);
    EXPECT_EQ(1u, TakeLog().size()) << "once, not at every shot";
    Bytes slow = Tone(kTone, 1, 0.5);
    std::fill_n(slow.begin() + 24, 4, std::uint8_t{0});  // the rate, in Hz
    slow[24] = 100;
    PlayEffect(slow);
    EXPECT_EQ(1u, TakeLog().size()) << "seven minutes of it";
    Bytes claiming = Tone(kTone, 1, 0.5);
    std::fill_n(claiming.begin() + 41, 3, std::uint8_t{0xA0});  // of the size of its samples
    PlayEffect(claiming);
    EXPECT_EQ(1u, TakeLog().size()) << "2.7 GB of them";
    PlayEffect({});
    PlayEffect({0});
    EXPECT_EQ(0u, TakeLog().size()) << "a missing file is reported where it is read";
    tape.Run(kSlack);
    const double from = tape.Now();
    tape.Run(0.3);
    EXPECT_LT(tape.Loudness(from, tape.Now()), kSilent);
}

TEST_F(AudioTest, WithoutASoundFontTheMusicIsSilentAndTheEffectsAreHeard) {
    Put("a.mid", Tune(kScale));
    Put("broken.sf2", {'R', 'I', 'F', 'F', 0, 0, 0, 0});
    const std::string fonts[] = {"/no/such/font.sf2", (folder / "broken.sf2").string(), folder.string()};
    for (const std::string& font : fonts) {
        setenv("TARNVEIL_SOUNDFONT", font.c_str(), 1);
        StartAudio();
        OpenMidi("a.mid");
        PlayMidi(True);
        RunWithTimer(1.5);
        EXPECT_EQ("", MusicMode()) << font;
        OpenMidi("a.mid");
        PlayMidi(True);
        EXPECT_EQ("", MusicMode()) << font << ", now that it is known to be missing";
        RunWithTimer(1.5);
        EXPECT_LT(tape.Loudness(0, tape.Now()), kSilent) << font;
        const auto log = TakeLog();
        ASSERT_EQ(1u, log.size()) << font;
        EXPECT_NE(std::string::npos, log[0].find(font));

        PlayWave(Tone(2300, 1, 0.5));
        tape.Run(0.5);
        EXPECT_GT(tape.Loudness(tape.Now() - 0.2, tape.Now()), 0.1) << font;
        StopAudio();
    }
}

TEST_F(AudioTest, TheOptionForTheSoundFontGoesBeforeTheEnvironment) {
    setenv("TARNVEIL_SOUNDFONT", "/no/such/font.sf2", 1);
    SetSoundFont("/nor/this/one.sf2");
    StartAudio();
    tape.Run(0.5);
    const auto log = TakeLog();
    ASSERT_EQ(1u, log.size());
    EXPECT_NE(std::string::npos, log[0].find("/nor/this/one.sf2"));
}

TEST_F(AudioTest, WithoutASoundDeviceEverythingIsSilentAfterOneLine) {
    setenv("SDL_AUDIODRIVER", "no-such-driver", 1);
    Put("a.mid", Tune(kScale));
    StartAudio();
    OpenMidi("a.mid");
    PlayMidi(True);
    PlayWave(Tone(2300, 1, 0.5));
    Bgm_Check_Timer();
    StopMidi();
    EXPECT_EQ("", MusicMode());
    EXPECT_EQ(1u, TakeLog().size());
}

TEST_F(AudioTest, BeforeTheStartAndAfterTheStopEveryCallIsSafe) {
    Put("a.mid", Tune(kScale));
    for (const bool started : {false, true}) {
        if (started) StartAudio();
        StopAudio();
        StopAudio();
        EXPECT_FALSE(MusicOpen((folder / "a.mid").string()));
        MusicPlay();
        MusicStop();
        MusicRewind();
        MusicClose();
        PlayWave(Tone(2300, 1, 0.5));
        EXPECT_EQ("", MusicMode());
    }
}

TEST_F(SoundTest, StartingTwiceIsStartingOnceAndItCanBeStartedAgain) {
    StartAudio();
    Put("a.mid", Tune(kScale));
    OpenMidi("a.mid");
    PlayMidi(False);
    tape.RunUntilHeard();
    StopAudio();
    StartAudio();  // the tape is a new one
    EXPECT_EQ("", MusicMode());
    OpenMidi("a.mid");
    PlayMidi(False);
    EXPECT_EQ(69, Keys(tape.Notes(tape.RunUntilHeard())).at(0));
}
