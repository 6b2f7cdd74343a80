// Whether a recorded game is what it says: it is played again, without pictures, and compared with every figure in it.
#pragma once

#include <string>

#include "recording/recording.h"

enum class Verdict {
    agrees,
    damaged,           // cannot be read
    otherVersion,      // recorded under other rules of play
    otherTables,       // with tables that nobody here has
    impossibleTiming,  // events that no host reports so
    otherEvents,       // its events do not lead where it says: spliced, or of another game
    forgedResult,      // they do, but to another score or end than it claims
    count
};
const char* VerdictName(Verdict verdict);

inline constexpr int kMostVerifiedFrames = 200000;  // over two hours

struct Verification {
    Verdict verdict = Verdict::agrees;
    std::string reason{};  // in words; empty when it agrees
    int frames = 0;        // played
    Long score = 0;        // at the end of them
};

// Plays the recording in this process, whose game is lost by that, on the tables it names. `anyTables`: on the
// folder's. Time and memory are bounded whatever it holds.
Verification Verify(const Recording& recording, bool anyTables = false);

// Why a game that agrees is in no ranking: taken over, invincible and so on. Empty when it is.
std::string WhyNotRanked(const Recording& recording);
