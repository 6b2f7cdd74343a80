// The playfield, in pixels: what StartProgram sets ScreenW and ScreenH to.
#pragma once

inline constexpr int kFieldWidth = 320;
inline constexpr int kFieldHeight = 480;
