// The program's entry, after its options are read and its folder is set.
#pragma once

// Loads and shows the main window, looks for a joystick and runs the title. Never returns: the program ends by
// EndProgram.
void Main();
