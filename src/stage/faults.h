// Faults in the data files, met during play. Play goes on: what is faulty is passed over or ends the enemy.
#pragma once

#include <string>

enum class Fault { stageIndexOutside, noSuchKind, noSuchPattern, stepOutside, jumpOutside, endlessTable, count };

// One log line per kind of fault and game, naming the entry.
void ReportFault(Fault fault, const std::string& where);

// For a new game.
void ForgetFaults();

// Faults reported since the last ForgetFaults, per kind; for tests.
int FaultsSeen(Fault fault);
