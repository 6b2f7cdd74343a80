// The title: the program's outer loop, with the information screen and the best scores.
#pragma once

// Shows the title, runs a game on Space or joystick button 2, comes back to the title. Never returns; the program ends
// by EndProgram.
void TitleScreen();

// The title picture slides in from both sides over whatever Crt shows.
void DrawTitle();

// The information picture over the scrolling background: for 6 seconds, or until Space or a new press of button 2.
void ShowInfoScreen();

// One game with what belongs around it: menus off, best score in force, GameLoop, best score saved, menus on.
void RunGame();
