// What an author would want to know about a set of tables before playing it.
#pragma once

#include <string>
#include <vector>

#include "author/tables.h"

// One line per finding, naming file, entry and reason; in the order files, then entries. Empty when all is well.
std::vector<std::string> CheckTables(const Tables& tables);
