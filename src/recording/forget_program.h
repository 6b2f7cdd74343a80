// For what plays more than once in one process: tests, tools, the judge of links.
#pragma once

// Puts everything back as a new process has it, so that nothing of an earlier game, recording or replay is left. The
// host and the program's folder are left alone. What may come before the start of a program follows (FixSeed,
// StartReplay), then Main or StartProgram.
void ForgetProgram();
