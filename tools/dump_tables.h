// From tables back to Lua text that builds to the same bytes, with names for numbers and groups for what is regular.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "author/tables.h"

// What patterns and kinds are called. An empty name: none.
struct TableNames {
    std::array<std::string, kMovePatterns> patterns;
    std::array<std::string, kEnemyKinds> kinds;
};

// "pattern_4", "kind_3": for tables whose sources are not at hand.
TableNames NumberedNames();

struct LuaSource {
    std::string name;  // of the file
    std::string text;
};

// The six sources, in the order in which they are built, and the words that they include.
std::vector<LuaSource> DumpTables(const Tables& tables, const TableNames& names);
