// The program's entry, after its options are read and its folder is set.
#pragma once

// All of the start up to the title: loads and shows the main window and looks for a joystick. Called by Main, and by
// what plays games without a title.
void StartProgram();

// Starts the program and runs the title. Never returns: the program ends by EndProgram.
void Main();
