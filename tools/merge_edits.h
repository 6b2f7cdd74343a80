// What could be changed in sources to make up for a difference: each is to be tried.
#pragma once

#include "merge_workshop.h"

// Numbers, names and fields of the lines that the record comes from, and lines to add or to leave out. No Edit is
// certain, most do something else.
std::vector<Edit> EditsFor(const Workshop& shop, const Spot& spot);

// Where a line of a source begins; lines count from 1.
std::size_t LineStart(const std::string& source, int line);
