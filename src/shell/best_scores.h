// The four best scores and their file, "Scores.DAT" in the program's folder: four 32-bit numbers, 16 bytes.
#pragma once

#include "state/state.h"

// The best score of the play that is chosen, or null: plays of stage 2 or 3 alone have none.
Long* BestScoreInForce();

// Before a game: reads the file into `Scores` and takes the best score in force as `HiScore`, which otherwise keeps its
// value. A file that is missing, short or unreadable counts as zeros.
void LoadBestScores();

// Whether SaveBestScores does anything. A replay clears it: a replayed score is nobody's.
inline bool keepBestScores = true;

// After a game: stores `HiScore` back and writes the file. When that fails the player is told once.
void SaveBestScores();
