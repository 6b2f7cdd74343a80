// For tests of the player's runs: games of pilots, kept as the program keeps them.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "host/files.h"
#include "pilot.h"
#include "platform/events.h"
#include "recording/keeper.h"
#include "recording/run.h"
#include "shell/title_screen.h"
#include "simulation.h"
#include "stage/plays.h"
#include "state/options.h"
#include "test_game.h"

using SavedRun = ::Run;  // gtest has a Run of its own

class RunsTest : public GameTest {
  protected:
    // One game from the title's start key on, played by a pilot for so many frames and then left.
    void PlayGame(std::uint64_t seed, int frames, const char* pilotName = "dodge") {
        const auto pilot = MakePilot(pilotName, Weapon::switching, seed);
        PilotHands hands;
        FixSeed(seed);
        const int end = host.yields + frames;
        host.onYield = [&] {
            if (host.yields >= end) return headless::Tap(VK_ESCAPE);
            hands.Press(pilot->Decide(game), host.events);
        };
        RunGame();
        host.onYield = nullptr;
        host.events.clear();
    }

    static SavedRun ReadRun(const std::string& path) {
        SavedRun run;
        EXPECT_EQ("", UnpackRun(ReadWholeFile(path).bytes, run)) << path;
        return run;
    }

    // A short game of a pilot as it is kept.
    Recording Kept(std::uint64_t seed, int frames = 600) {
        static const char* const kPilots[] = {"dodge", "beginner", "sweep", "practised"};
        StartKeepingRuns();
        ChooseRow(kDifficulties, &Difficulty::level, kDifficulties[seed % 3].level);
        ChooseRow(kPlays, &Play::number, kPlays[seed % 4].number);
        PlayGame(seed, frames, kPilots[seed % 4]);
        EXPECT_EQ("", FinishRecorder());
        const std::string path = ListRuns().at(0).path;
        Recording recording = ReadRun(path).recording;
        std::filesystem::remove(path);
        return recording;
    }

    static std::string Verified(const Recording& recording) {
        SimReport report;
        return VerifyRecording(recording, false, report);
    }

    std::filesystem::path folder = UseFolder(true);
};

// How many games a test tries; a long check asks for more.
inline int GamesToTry(int usual) {
    const char* wanted = std::getenv("TARNVEIL_GAMES_TO_TRY");
    return wanted ? std::atoi(wanted) : usual;
}
