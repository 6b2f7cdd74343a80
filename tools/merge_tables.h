// What was changed in tables, put back into the Lua sources that had built them.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "author/tables.h"

struct MergeResult {
    std::string fault;                           // why nothing could be done at all; else empty
    std::map<std::string, std::string> sources;  // the changed ones, by file name
    std::vector<std::string> done;               // "stage1.lua:20: spawn("talon", 50) → spawn("talon", 60)"
    std::vector<std::string> left;               // "stage1.lua:14: entry 3: X 40 → 47: reason"
};

// Looks for the changes of single numbers and names, and for single lines to add or leave out, after which the sources
// of `folder` build `wanted`. Each is tried by building: what is done is never further from the tables than what was
// there, and nothing but what the tables say has changed. Writes nothing.
MergeResult MergeTables(const Tables& wanted, const std::string& folder);
