// Music that loops or plays once, the check that restarts it, the effects, and the menu items that gate both.
#include "platform/music.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "host/window.h"
#include "platform/events.h"
#include "shell/ending.h"
#include "shell/title_screen.h"
#include "stage/load_stage.h"
#include "stage/player.h"
#include "test_game.h"
#include "toolkit/folder.h"

namespace {

using Sent = std::vector<std::string>;

class MusicTest : public GameTest {
  protected:
    MusicTest() {
        host.stepPerReading = 0;  // time passes only where a test says so
        SetProgramFolder("/music");
    }

    // What the device was asked since the last call.
    Sent TakeSent() { return std::exchange(host.audio, {}); }

    void StartPiece(Integer loopIt) {
        OpenMidi("Stage1.mid");
        PlayMidi(loopIt);
        TakeSent();
    }

    // One yield, `ms` later.
    void YieldAfter(std::uint32_t ms) {
        host.now += ms;
        DoEvents();
    }

    void ClickAndYield(const std::string& item) {
        headless::ClickMenuItem(item);
        DoEvents();
    }
};

const Sent kRestart = {"rewind", "rewind", "play"};

}  // namespace

TEST_F(MusicTest, OpeningClosesWhatIsOpenAndStandsStoppedAtTheStart) {
    StartPiece(True);
    OpenMidi("boss.mid");
    EXPECT_EQ((Sent{"close", "open /music/boss.mid"}), TakeSent());
    EXPECT_EQ("stopped", host.musicMode);
}

TEST_F(MusicTest, OnlyPlayingWithTheLoopSetsTheLoopAndOpeningStoppingAndClosingClearIt) {
    OpenMidi("Stage1.mid");
    PlayMidi(False);
    EXPECT_EQ(False, game.BgmLoop);
    PlayMidi(True);
    EXPECT_EQ(True, game.BgmLoop);
    PlayMidi(False);
    EXPECT_EQ(True, game.BgmLoop) << "playing on without asking for the loop leaves it";

    for (const auto clear : {+[] { OpenMidi("boss.mid"); }, &StopMidi, &CloseMidi}) {
        game.BgmLoop = True;
        clear();
        EXPECT_EQ(False, game.BgmLoop);
    }
}

TEST_F(MusicTest, AnyLoopArgumentButZeroMeansLoop) {
    OpenMidi("Stage1.mid");
    PlayMidi(5);
    headless::EndPiece();
    TakeSent();
    Bgm_Check_Timer();
    EXPECT_EQ(kRestart, TakeSent());
}

TEST_F(MusicTest, ALoopingPieceThatRanOutIsWoundBackAndPlayed) {
    StartPiece(True);
    headless::EndPiece();
    Bgm_Check_Timer();
    EXPECT_EQ(kRestart, TakeSent());
    EXPECT_EQ("playing", host.musicMode);
    EXPECT_EQ(True, game.BgmLoop) << "and will be again";
}

TEST_F(MusicTest, TheCheckLeavesAloneWhatPlaysOrPlaysOnceOrWasStopped) {
    StartPiece(True);
    Bgm_Check_Timer();
    EXPECT_EQ(Sent{}, TakeSent()) << "still playing";

    StartPiece(False);
    headless::EndPiece();
    Bgm_Check_Timer();
    EXPECT_EQ(Sent{}, TakeSent()) << "played once";

    StartPiece(True);
    StopMidi();
    TakeSent();
    Bgm_Check_Timer();
    EXPECT_EQ(Sent{}, TakeSent()) << "stopped on purpose";
}

TEST_F(MusicTest, TheCheckGoesByTheFirstSevenLettersOfTheReplyInAnyCase) {
    const std::pair<const char*, bool> replies[] = {
        {"stopped", true}, {"STOPPED", true},   {"sToPpEd", true}, {"stopped   ", true}, {"stoppedx", true},
        {"stoppe", false}, {" stopped", false}, {"paused", false}, {"playing", false},   {"", false},
    };
    for (const auto& [reply, restarts] : replies) {
        StartPiece(True);
        host.musicMode = reply;
        Bgm_Check_Timer();
        EXPECT_EQ(restarts ? kRestart : Sent{}, TakeSent()) << '"' << reply << '"';
    }
}

TEST_F(MusicTest, NothingHappensWhileNothingIsOpen) {
    PlayMidi(True);
    EXPECT_EQ("", host.musicMode);
    Bgm_Check_Timer();
    StopMidi();
    CloseMidi();
    EXPECT_EQ("", host.musicMode);
    EXPECT_EQ(0, std::ranges::count(host.audio, "rewind"));
}

TEST_F(MusicTest, AFileThatCannotBePlayedMeansSilenceAndTheGameGoesOn) {
    host.musicFails = true;
    OpenMidi("Stage1.mid");
    PlayMidi(True);
    EXPECT_EQ("", host.musicMode);
    TakeSent();
    Bgm_Check_Timer();
    EXPECT_EQ(Sent{}, TakeSent());
}

TEST_F(MusicTest, CommandsTheDeviceDoesNotKnowDoNothing) {
    StartPiece(True);
    for (const char* command : {"", "open", "open Stage1.mid alias MIDI", "open \" alias MIDI", "pause MIDI", "play"}) {
        EXPECT_EQ("", mciSendStringA(command));
    }
    EXPECT_EQ(Sent{}, TakeSent());
    EXPECT_EQ("playing", mciSendStringA("status MIDI mode"));
}

TEST_F(MusicTest, AFileNameMayHaveBlanksAndQuotes) {
    mciSendStringA("open \"/my \"best\" music/a b.mid\" alias MIDI");
    EXPECT_EQ((Sent{"open /my \"best\" music/a b.mid"}), TakeSent());
}

TEST_F(MusicTest, TheCheckComesEverySecond) {
    StartPiece(True);
    YieldAfter(0);  // the timer starts to count
    headless::EndPiece();
    YieldAfter(999);
    EXPECT_EQ(Sent{}, TakeSent());
    YieldAfter(1);
    EXPECT_EQ(kRestart, TakeSent());
    headless::EndPiece();
    YieldAfter(999);
    EXPECT_EQ(Sent{}, TakeSent());
    YieldAfter(1);
    EXPECT_EQ(kRestart, TakeSent());
}

TEST_F(MusicTest, ALateCheckComesOnceAndCountsFromThen) {
    StartPiece(True);
    YieldAfter(0);
    headless::EndPiece();
    YieldAfter(5400);
    EXPECT_EQ(kRestart, TakeSent());
    headless::EndPiece();
    YieldAfter(0);
    YieldAfter(999);
    EXPECT_EQ(Sent{}, TakeSent()) << "missed checks are not made up for";
    YieldAfter(1);
    EXPECT_EQ(kRestart, TakeSent());
}

TEST_F(MusicTest, TheCheckKeepsItsSecondAcrossTheClocksWrap) {
    host.now = 0xFFFFFFFFU - 300;
    StartPiece(True);
    YieldAfter(0);
    headless::EndPiece();
    YieldAfter(100);
    EXPECT_EQ(Sent{}, TakeSent()) << "before the wrap";
    YieldAfter(899);
    EXPECT_EQ(Sent{}, TakeSent()) << "after it";
    YieldAfter(1);
    EXPECT_EQ(kRestart, TakeSent());
}

TEST_F(MusicTest, SwitchingBgmOffAndOnPlaysOnButEndsTheLoop) {
    StartPiece(True);
    ClickAndYield("Menu006");
    EXPECT_FALSE(MainForm.Menu006.Checked);
    EXPECT_EQ(Sent{"stop"}, TakeSent());
    ClickAndYield("Menu006");
    EXPECT_TRUE(MainForm.Menu006.Checked);
    EXPECT_EQ(Sent{"play"}, TakeSent()) << "from where it stopped, not from the start";
    EXPECT_EQ(False, game.BgmLoop);
    headless::EndPiece();
    YieldAfter(1000);
    EXPECT_EQ(Sent{}, TakeSent());
}

TEST_F(MusicTest, WithBgmOffAStageOpensItsFileButNothingPlaysAndNothingLoops) {
    MainForm.Menu006.Checked = false;
    const std::string folder = UseFolder(true).string();
    LoadStage();
    EXPECT_EQ((Sent{"close", "open " + folder + "/Stage1.mid"}), TakeSent());
    EXPECT_EQ(False, game.BgmLoop);
    YieldAfter(0);
    YieldAfter(1000);
    EXPECT_EQ(Sent{}, TakeSent());

    ClickAndYield("Menu006");  // now it plays, once
    EXPECT_EQ(Sent{"play"}, TakeSent());
    EXPECT_EQ(False, game.BgmLoop);
}

TEST_F(MusicTest, SwitchingBgmOnAtTheTitleIsSilent) {
    UseFolder(true);
    std::vector<std::string> modes;
    host.stepPerReading = 1;
    host.onYield = [&, yields = 0]() mutable {
        ++yields;
        if (yields == 3) headless::Tap(VK_SPACE);
        if (yields == 8) modes.push_back(host.musicMode);  // in the game
        if (yields == 10) headless::Tap(VK_ESCAPE);
        if (yields == 14 || yields == 16) headless::ClickMenuItem("Menu006");
        if (yields > 16) modes.push_back(host.musicMode);
        if (yields == 30) throw EndProgram{};
    };
    EXPECT_THROW(TitleScreen(), EndProgram);
    ASSERT_EQ(15u, modes.size());
    EXPECT_EQ("playing", modes[0]);
    EXPECT_EQ(14, std::count(modes.begin() + 1, modes.end(), ""));
    EXPECT_EQ("play", host.audio.back()) << "the item was switched off and on";
}

TEST_F(MusicTest, TheGameOverPiecePlaysOnceAndReplacesALoop) {
    StartEmptyGame();
    EXPECT_EQ(True, game.BgmLoop);
    game.MyDead = True;
    game.MyY = 488;
    UpdatePlayer();
    UpdatePlayer();
    const Sent sent = TakeSent();
    ASSERT_EQ(3, std::ranges::count_if(sent, [](auto& s) { return !s.starts_with("wave"); }));
    EXPECT_TRUE(std::ranges::any_of(sent, [](auto& s) { return s.ends_with("/gameover.mid"); }));
    EXPECT_EQ("playing", host.musicMode);
    headless::EndPiece();
    TakeSent();
    YieldAfter(0);
    YieldAfter(1000);
    EXPECT_EQ(Sent{}, TakeSent());
    EXPECT_EQ("stopped", host.musicMode);
}

TEST_F(MusicTest, TheEndingPiecePlaysOnceAndStopsWithTheRoll) {
    StartEmptyGame();
    host.stepPerReading = 1;
    host.onYield = [&, yields = 0]() mutable {
        if (++yields == 5) headless::EndPiece();
        if (yields == 100) EXPECT_EQ("stopped", host.musicMode) << "seconds later it is not playing again";
        headless::Tap(VK_SPACE);  // leaves as soon as the roll lets it
    };
    Ending();
    const Sent sent = TakeSent();
    ASSERT_EQ(4u, sent.size());
    EXPECT_EQ("close", sent[0]);
    EXPECT_TRUE(sent[1].ends_with("/End.mid"));
    EXPECT_EQ("play", sent[2]);
    EXPECT_EQ("stop", sent[3]);
    EXPECT_EQ(False, game.BgmLoop);
}

TEST_F(MusicTest, WithBgmOffTheEndingIsSilent) {
    StartEmptyGame();
    MainForm.Menu006.Checked = false;
    host.stepPerReading = 1;
    host.onYield = [] { headless::Tap(VK_SPACE); };
    Ending();
    const Sent sent = TakeSent();
    EXPECT_EQ(0, std::ranges::count(sent, "play"));
    EXPECT_EQ(1, std::ranges::count_if(sent, [](auto& s) { return s.ends_with("/End.mid"); }));
}

TEST_F(MusicTest, TheEffectsItemGatesTheEffectsAndNotTheMusic) {
    const std::vector<Byte> wave(44);
    StartPiece(True);
    ClickAndYield("Menu004");
    EXPECT_FALSE(MainForm.Menu004.Checked);
    PlayEffect(wave);
    EXPECT_EQ(Sent{}, TakeSent());
    EXPECT_EQ("playing", host.musicMode);
    ClickAndYield("Menu004");
    PlayEffect(wave);
    EXPECT_EQ(Sent{"wave 44"}, TakeSent());
}

TEST_F(MusicTest, TheBgmItemDoesNotGateTheEffects) {
    ClickAndYield("Menu006");
    TakeSent();
    PlayEffect(std::vector<Byte>(44));
    EXPECT_EQ(Sent{"wave 44"}, TakeSent());
}

TEST_F(MusicTest, OfTwoEffectsInAFrameTheLaterIsTheLastThatIsHeard) {
    PlayEffect(std::vector<Byte>(100));
    PlayEffect(std::vector<Byte>(200));
    EXPECT_EQ((Sent{"wave 100", "wave 200"}), TakeSent()) << "each at once: the device cuts off the former";
}
