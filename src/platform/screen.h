// What is drawn on the game screen besides the game's objects: the scrolling background and the messages.
#pragma once

// Copies the background of B_Crt onto Crt as an endless vertical loop and moves it down by ScrollSpeed. Covers the
// whole drawing area, so it also erases the last frame. Once per frame, before anything is drawn.
void ScrollBackground();

// The banner has digits for the stages 1 to this one.
inline constexpr int kLastBannerStage = 5;

// Counts MessageCount up to 110 and paints the stage banner (while it is 20..100), the game-over words or the
// stage-clear words. Once per frame, after the energy gauge.
void DrawMessages();
