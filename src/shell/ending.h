// The ending of a normal game.
#pragma once

// Rolls the staff credits up the right of the screen over the scrolling background, shows the logo and waits for Space
// or Esc. Called by GameLoop after the last stage; sets QuitGame.
void Ending();
