// The status line.
#pragma once

#include <string>

// Keeps the frames-per-second figure and prints the status line at the top of Crt. The last routine of every frame.
void DrawStatus();

// "HISCORE 000000  SCORE 000000   POWER 0     FPS 00000" with the current values.
std::string StatusLine();
