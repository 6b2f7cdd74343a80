// The starfield.
#pragma once

// Draws every star where it is and then moves it: down, or up while StarReverse is true. Once per frame after the
// messages, so the stars lie on top of every sprite; the ending calls it too.
void MoveStars();
