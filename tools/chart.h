// A stage as a picture: what is in sight over time.
#pragma once

#include <string>

#include "simulation.h"

// Plays `seeds` games and has gnuplot draw enemies and shots in sight and hits a minute, over the time of the first
// stage played, as SVG into `file`. `passages`: a file of lines "TABLE FRAME NAME" to be written along the time, or
// empty. False, with a message on standard error, when something is missing.
bool Chart(const SimOptions& options, int seeds, const std::string& file, const std::string& passages);
