#include <cstdio>

#include "host/files.h"

void LogLine(const std::string& line) {
    std::fprintf(stderr, "tarnveil: %s\n", line.c_str());
}
