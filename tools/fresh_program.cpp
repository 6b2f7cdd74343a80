#include "fresh_program.h"

#include "host/headless/headless.h"
#include "recording/forget_program.h"
#include "shell/main_routine.h"

void NewProgram(std::uint32_t clockStep) {
    headless::Reset();
    headless::TheHost().stepPerReading = clockStep;
    ForgetProgram();
}

void FreshProgram(std::uint32_t clockStep) {
    NewProgram(clockStep);
    StartProgram();
}
