// The main window as it is designed: its pictures, its size and caption, and what its parts do.
#pragma once

// The pictures of the window's design, the handlers of its menu items and timer, then Form_Load. Called by Main before
// the window is shown.
void LoadMainForm();

// Sizes Crt and B_Crt, sets the caption and the start-up options, asks for the middle of the screen.
void Form_Load();

// The window is closed: the music stops and the program ends at once, wherever it is. Throws EndProgram.
void Form_Unload();
