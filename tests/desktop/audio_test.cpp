// The real sound device and synthesizer, heard through SDL's disk driver: what sounds when, and what does not.
#include "host/audio.h"
#include "shell/menus.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "audio_fixture.h"
#include "platform/music.h"
#include "state/main_form.h"

TEST_F(SoundTest, APieceSoundsOnlyWhenItIsPlayedAndThenEveryNoteInItsPlace) {
    Put("a.mid", Tune(kScale));
    EXPECT_EQ("", MusicMode());
    ASSERT_TRUE(MusicOpen((folder / "a.mid").string()));  // while the SoundFont is being loaded
    EXPECT_EQ("stopped", MusicMode());
    tape.Run(1);
    EXPECT_LT(tape.Loudness(0, tape.Now()), kSilent);

    MusicPlay();
    EXPECT_EQ("playing", MusicMode());
    const double start = tape.RunUntilHeard();
    tape.Run(4.6);
    const auto notes = tape.Notes(start);
    EXPECT_EQ(kScaleKeys, Keys(notes));
    for (std::size_t i = 0; i < std::min(notes.size(), kScaleKeys.size()); ++i) {
        EXPECT_NEAR(start + 0.5 * static_cast<double>(i), notes[i].start, 0.07) << i;
    }
    EXPECT_EQ("stopped", MusicMode()) << "it has run out";
}

TEST_F(SoundTest, MusicAskedForBeforeTheSoundFontIsLoadedStartsAtItsFirstNote) {
    Put("a.mid", Tune(kScale));
    OpenMidi("a.mid");
    PlayMidi(False);
    EXPECT_EQ("playing", MusicMode());
    const double start = tape.RunUntilHeard();
    tape.Run(1);
    const auto keys = Keys(tape.Notes(start));
    ASSERT_FALSE(keys.empty());
    EXPECT_EQ(69, keys.front());
}

TEST_F(SoundTest, OpeningAnotherPieceEndsTheFirstAndItsSettings) {
    Put("quiet.mid", Tune({{69, 4}}, 20));
    Put("loud.mid", Tune({{76, 4}}));
    OpenMidi("quiet.mid");
    PlayMidi(False);
    const double first = tape.RunUntilHeard();
    tape.Run(0.5);
    const double quiet = tape.Loudness(first + 0.2, first + 0.4);
    OpenMidi("loud.mid");
    PlayMidi(False);
    tape.Run(kSlack);
    const double second = tape.Now();
    tape.Run(0.5);
    EXPECT_EQ(std::vector<int>{76}, Keys(tape.Notes(second)));
    EXPECT_GT(tape.Loudness(second, second + 0.4), 10 * quiet) << "the first piece's volume is forgotten";
}

TEST_F(SoundTest, StoppedMusicIsSilentAndResumesExactlyWhereItStopped) {
    Put("a.mid", Tune(kScale, 30));
    OpenMidi("a.mid");
    PlayMidi(False);
    const double start = tape.RunUntilHeard();
    tape.Run(1.1);
    const double stop = tape.Now();
    MusicStop();
    EXPECT_EQ("stopped", MusicMode());
    tape.Run(1.5);
    EXPECT_LT(tape.Loudness(stop + kSlack, tape.Now()), kSilent);
    const double resume = tape.Now();
    MusicPlay();
    tape.Run(3.5);

    EXPECT_EQ(kScaleKeys, WithoutRepeats(Keys(tape.Notes(start)))) << "nothing twice, nothing left out";
    const auto notes = tape.Notes(resume);
    const auto last = std::ranges::find(notes, 81, &HeardNote::key);
    ASSERT_NE(notes.end(), last);
    EXPECT_NEAR(3.5 + (resume - stop), last->start - start, kSlack) << "the pause is added, no more";
    const double before = tape.Loudness(start + 0.1, start + 0.4);
    EXPECT_NEAR(1, tape.Loudness(last->start + 0.1, last->start + 0.4) / before, 0.5) << "programs and volume are kept";
}

TEST_F(SoundTest, RewoundMusicStandsStoppedAndPlaysFromTheStart) {
    Put("a.mid", Tune(kScale));
    OpenMidi("a.mid");
    PlayMidi(False);
    tape.RunUntilHeard();
    tape.Run(1.2);
    MusicRewind();
    EXPECT_EQ("stopped", MusicMode());
    tape.Run(kSlack);
    const double silence = tape.Now();
    tape.Run(0.5);
    EXPECT_LT(tape.Loudness(silence, tape.Now()), kSilent);
    MusicPlay();
    const double again = tape.RunUntilHeard();
    tape.Run(0.8);
    const auto keys = Keys(tape.Notes(again));
    ASSERT_GE(keys.size(), 2u);
    EXPECT_EQ((std::vector{69, 71}), std::vector(keys.begin(), keys.begin() + 2));
}

TEST_F(SoundTest, AClosedDeviceIsSilentWhateverItIsTold) {
    Put("a.mid", Tune({{69, 4}}));
    OpenMidi("a.mid");
    PlayMidi(True);
    tape.RunUntilHeard();
    CloseMidi();
    EXPECT_EQ("", MusicMode());
    MusicPlay();
    MusicRewind();
    MusicPlay();
    EXPECT_EQ("", MusicMode());
    tape.Run(kSlack);
    const double closed = tape.Now();
    RunWithTimer(1.5);
    EXPECT_LT(tape.Loudness(closed, tape.Now()), kSilent);
}

TEST_F(SoundTest, ALoopingPieceStartsAgainWithinASecondOfItsEndAndASingleOneDoesNot) {
    Put("a.mid", Tune({{69, 0.5}, {76, 1}}));
    OpenMidi("a.mid");
    PlayMidi(True);
    const double start = tape.RunUntilHeard();
    RunWithTimer(5);
    const auto notes = tape.Notes(start);
    const auto keys = Keys(notes);
    ASSERT_GE(keys.size(), 4u) << "two rounds at least";
    EXPECT_EQ((std::vector{69, 76, 69, 76}), std::vector(keys.begin(), keys.begin() + 4));
    const auto again = std::find_if(notes.begin() + 1, notes.end(), [](const HeardNote& n) { return n.key == 69; });
    EXPECT_LT(again->start - (start + 1.5), 1 + kSlack);

    OpenMidi("a.mid");
    PlayMidi(False);
    tape.Run(kSlack);
    RunWithTimer(2);
    const double end = tape.Now();
    RunWithTimer(2);
    EXPECT_EQ("stopped", MusicMode());
    EXPECT_LT(tape.Loudness(end, tape.Now()), kSilent);
}

TEST_F(SoundTest, APieceEndsWithItsLastEventAndHeldNotesEndToo) {
    // A note that is never lifted, its pedal down, and a track that ends a second later.
    Put("held.mid", MidiFile({0, 0xc0, kOcarina, 0, 0xb0, 64, 127, 0, 0x90, 69, 127, 0x87, 0x40, 0xff, 0x2f, 0}));
    OpenMidi("held.mid");
    PlayMidi(False);
    const double start = tape.RunUntilHeard();
    while (MusicMode() == "playing" && tape.Now() < start + 5) tape.Run(0.02);
    EXPECT_NEAR(1, tape.Now() - start, kSlack);
    tape.Run(1.5);
    EXPECT_LT(tape.Loudness(tape.Now() - 0.3, tape.Now()), kSilent);
}

TEST_F(SoundTest, TheBgmItemStopsAndResumesTheMusicAndEndsItsLoop) {
    Put("a.mid", Tune(kScale));
    OpenMidi("a.mid");
    PlayMidi(True);
    const double start = tape.RunUntilHeard();
    RunWithTimer(1.1);
    Menu006_Click();
    tape.Run(kSlack);
    const double off = tape.Now();
    RunWithTimer(1.5);
    EXPECT_LT(tape.Loudness(off, tape.Now()), kSilent);
    Menu006_Click();
    RunWithTimer(3.5);
    EXPECT_EQ(kScaleKeys, WithoutRepeats(Keys(tape.Notes(start))));
    const double end = tape.Now();
    RunWithTimer(1.5);
    EXPECT_LT(tape.Loudness(end, tape.Now()), kSilent) << "it does not start again";
}

TEST_F(SoundTest, AnEffectIsHeardOverTheMusicAndCutOffByTheNext) {
    constexpr double kFirst = 2300, kSecond = 3100, kHeard = 0.05, kNotHeard = 0.005;
    Put("a.mid", Tune({{69, 30}}));
    OpenMidi("a.mid");
    PlayMidi(False);
    tape.RunUntilHeard();
    PlayEffect(Tone(kFirst, 10, 0.5));
    tape.Run(kSlack);
    double from = tape.Now();
    tape.Run(0.3);
    EXPECT_GT(tape.Strength(kFirst, from, from + 0.3), kHeard);
    EXPECT_GT(tape.Strength(440, from, from + 0.3), kHeard) << "the music goes on";

    PlayEffect(Tone(kSecond, 1, 0.5));
    tape.Run(kSlack);
    from = tape.Now();
    tape.Run(0.3);
    EXPECT_LT(tape.Strength(kFirst, from, from + 0.3), kNotHeard);
    EXPECT_GT(tape.Strength(kSecond, from, from + 0.3), kHeard);
    EXPECT_GT(tape.Strength(440, from, from + 0.3), kHeard);
    tape.Run(1);
    from = tape.Now();
    tape.Run(0.3);
    EXPECT_LT(tape.Strength(kSecond, from, from + 0.3), kNotHeard) << "it plays once";
}

TEST_F(SoundTest, TheEffectsItemSilencesEffects) {
    Menu004_Click();
    PlayEffect(Tone(2300, 1, 0.5));
    tape.Run(0.5);
    EXPECT_LT(tape.Loudness(0, tape.Now()), kSilent);
    Menu004_Click();
    PlayEffect(Tone(2300, 1, 0.5));
    tape.Run(0.5);
    EXPECT_GT(tape.Loudness(tape.Now() - 0.2, tape.Now()), 0.1);
}

TEST_F(SoundTest, TheLoudestMusicAndTheLoudestEffectStillFitTogether) {
    Bytes crash;  // every channel at full volume, ten notes each, all at once
    for (std::uint8_t channel = 0; channel < 16; ++channel) {
        const auto status = static_cast<std::uint8_t>(0x90 | channel),
                   control = static_cast<std::uint8_t>(0xb0 | channel);
        crash.insert(crash.end(), {0, control, 7, 127, 0, control, 11, 127});
        for (std::uint8_t key = 40; key < 80; key = static_cast<std::uint8_t>(key + 4)) {
            crash.insert(crash.end(), {0, status, key, 127});
        }
    }
    crash.insert(crash.end(), {0x87, 0x40, 0xff, 0x2f, 0});
    Put("crash.mid", MidiFile(crash));
    OpenMidi("crash.mid");
    PlayMidi(False);
    tape.RunUntilHeard();
    PlayEffect(Tone(1000, 1, 1.0));
    tape.Run(1);
    EXPECT_LT(tape.Peak(0), 32767);
    EXPECT_GT(tape.Peak(0), 25000) << "the case is a hard one";
}

TEST_F(SoundTest, EveryShippedPieceSounds) {
    int pieces = 0;
    for (const auto& entry : std::filesystem::directory_iterator(TARNVEIL_ASSETS "/data")) {
        const std::string extension = entry.path().extension().string();
        if (extension != ".mid" && extension != ".Mid") continue;
        ++pieces;
        ASSERT_TRUE(MusicOpen(entry.path().string())) << entry.path();
        MusicPlay();
        tape.Run(kSlack);
        const double from = tape.Now();
        tape.Run(1.5);
        EXPECT_EQ("playing", MusicMode()) << entry.path();
        EXPECT_GT(tape.Loudness(from, tape.Now()), 0.01) << entry.path();
    }
    EXPECT_EQ(9, pieces);
}
