// Games that are recorded, and recorded games that are played on screen.
#pragma once

#include "options.h"

namespace desktop {

// Starts recording or replaying as the options ask. Called before Main. Empty, or what is wrong: a recording that
// cannot be read, or one that belongs to other data tables (unless --any-data).
std::string StartRecordedPlay(const Options& options);

// Called after the program's loops have ended: writes the recording and says how the replay went. Returns the program's
// exit status: `status`, or 1 when the recording could not be written or the replay differs.
int FinishRecordedPlay(int status);

}  // namespace desktop
