// The last ten seconds of the running game, to be played again. Music goes on as it plays.
#pragma once

#include <vector>

#include "host/events.h"

// A game has been set up: what was kept of the one before is forgotten, unless it is to be played again.
void GameBegins();

// Called at the end of every frame: keeps the state every 32 frames, or puts the oldest one back if that was asked for.
// The tables stay as they are now.
void KeepMoment();

// From the next frame's end on the last ten seconds (256 to 288 frames, or less) are played again, with the keys that
// were pressed in them. False when nothing is kept.
bool AskForMoment();

// Called with the events of every yield of a game. While the past is played, they are replaced by those of then; as
// soon as the author presses a key, or the past is over, the keys that are really down count again.
void TakeMomentsEvents(std::vector<InputEvent>& events);
