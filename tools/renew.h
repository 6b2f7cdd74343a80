// Recorded games of pilots: who played is kept in the recording, so that the game can be played and recorded anew.
#pragma once

#include <string>

#include "simulation.h"

// What a recording keeps of the pilot: "dodge switching stage1", the pilot, its weapon and what it was asked to play.
std::string PilotLine(const SimOptions& options);

// The game of the recording as it was asked for; false when no pilot, or an unknown one, has played it.
bool AskedFor(const Recording& recording, SimOptions& options);

// Plays the recorded game of `path` anew, on the tables there are now, and replaces the file by its recording. Empty
// when done, else what is wrong; the file is then as it was. `change` says what is new: nothing, only the fingerprint
// of the tables, or the play, from which frame on.
std::string Renew(const std::string& path, std::string& change);
