// From tables back to Lua text that builds to the same bytes.
#pragma once

#include <string>
#include <vector>

#include "author/tables.h"

struct LuaSource {
    std::string name;  // of the file
    std::string text;
};

// The six sources, in the order in which they are built.
std::vector<LuaSource> DumpTables(const Tables& tables);
