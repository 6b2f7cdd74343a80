#include "stage/faults.h"

#include <array>

#include "host/files.h"

namespace {

constexpr const char* kFaultTexts[] = {
    "the appearance table has run past its last entry",
    "there is no such enemy kind",
    "there is no such movement pattern",
    "a movement script has left its 256 steps",
    "a repeat entry jumps outside the table",
    "an appearance table that does not wait was cut short",
};
static_assert(std::size(kFaultTexts) == static_cast<std::size_t>(Fault::count));

std::array<int, static_cast<std::size_t>(Fault::count)> seen{};

}  // namespace

void ReportFault(Fault fault, const std::string& where) {
    const auto index = static_cast<std::size_t>(fault);
    if (seen[index]++ == 0) LogLine(where + ": " + kFaultTexts[index]);
}

void ForgetFaults() {
    seen.fill(0);
}

int FaultsSeen(Fault fault) {
    return seen[static_cast<std::size_t>(fault)];
}
