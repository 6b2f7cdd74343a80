// Actions on ranges of an appearance table. Each takes the tables as they are and gives them as they shall be, or says
// why it cannot be done. The entries that repeats jump back to keep their meaning when entries move.
#pragma once

#include <string>

#include "author/tables.h"

struct EntryRange {
    int table;  // 0..3
    int first;  // 0..512, both included
    int last;
};

// An entry that does nothing, before entry `at`; those from there on move up. Fails when the last entry is in use.
std::string InsertEntry(Tables& tables, int table, int at);

// The entries after the range move down.
std::string DeleteEntries(Tables& tables, const EntryRange& range);

// The range goes to stand before the entry that is now number `before` (513: to the end of what is in use).
std::string MoveEntries(Tables& tables, const EntryRange& range, int before);

// A copy of the range behind it. Fails when entries would be pushed out of the table.
std::string DuplicateEntries(Tables& tables, const EntryRange& range);

// A wave: `copies` more of the range behind it, each with its first entry `frames` after the last one before it and its
// enemies `across` pixels further to the right. Fails as DuplicateEntries does, and for less than one copy.
struct Wave {
    int copies = 1;
    int frames = 0;  // 0..32767
    Single across = 0;
};
std::string RepeatEntries(Tables& tables, const EntryRange& range, const Wave& wave);

// Adds to every Counter of the range; kept within 0..32767.
std::string ShiftCounters(Tables& tables, const EntryRange& range, int frames);

// The left edges of the range's enemies, as seen in a mirror down the middle of the field. Random places and commands
// stay.
std::string MirrorX(Tables& tables, const EntryRange& range);

// Entries in use: up to the last one that is not all zero.
int EntriesInUse(const Tables& tables, int table);
