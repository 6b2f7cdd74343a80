// The tables of every released version, which are part of the program: so an old game can be played again for good.
#pragma once

#include <cstdint>

// Makes the tables with that fingerprint (DataDigest) those that are read, by laying them over the folder where it has
// others. False when they are neither the folder's nor any released version's; then the folder's own are read.
bool UseTables(std::uint64_t digest);

// The folder's own tables are read again.
void UseOwnTables();
