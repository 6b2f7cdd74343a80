// The playback of an appearance table: the only source of enemies, and the way from stage to stage.
#pragma once

#include "state/state.h"

// Values of an entry's No that are commands. The others up to 256 are passed over; 0..238 send in an enemy of that
// kind. Only enemies and passed-over entries wait for their Counter.
enum StageCommand : Integer {
    kFirstCommand = 239,
    kStageClear = 247,    // clear music, energy bonus, clear message
    kNextStage = 248,     // load the next stage, or end the game
    kBossWaitStop = 249,  // wait until a boss is destroyed, then stop the music
    kBossEntry = 250,     // boss music and boss picture
    kBossWait = 251,      // wait until a boss is destroyed
    kRestart = 255,       // continue at entry 0
    kRepeat = 256,        // jump back to entry X, Y more times
};

// An X of exactly this asks for a random left edge.
inline constexpr Single kRandomX = 700.0F;

// Called once per frame, before anything moves. Takes every entry whose Counter has elapsed, several in one frame when
// their Counters are 0. Bounded to one pass over the table per call, so a table that loops on itself cannot hang the
// game; a table that runs past its last entry stays there. A kind above 49 or a No below 0 is passed over.
// An entry reached by a jump (248, 255, 256) is taken as a spawn or pass entry even if it is a command.
void StageScript();

// Puts the script where it waits for `entry` (0..512), as if all entries before it had just been taken and what they
// sent in had left: boss music and pictures as the last command and boss before it leave them, a boss that is waited
// for beaten. Jumps are not followed. Called between LoadStage and the first frame; an entry outside the table is 0.
void SkipToEntry(int entry);

// Watches the script for reports on a stage; changes nothing.
struct StageWatcher {
    void (*SpawnLost)(const StageDataType& entry) = nullptr;  // no slot was free
};
inline StageWatcher stageWatcher;
