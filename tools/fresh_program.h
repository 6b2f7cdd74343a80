// A program that has just started, on the scripted host.
#pragma once

#include <cstdint>

// Makes host and program as new, without the start, whose turn it then is (Main or StartProgram). Each reading of the
// clock takes `clockStep` ms: the more, the sooner busy waits end.
void NewProgram(std::uint32_t clockStep = 1);

// The same, started up to the title.
void FreshProgram(std::uint32_t clockStep = 1);
