// The playfield, in pixels. The author's models know it before the game has set itself up.
#pragma once

inline constexpr int kFieldWidth = 320;
inline constexpr int kFieldHeight = 480;
