// What the author has not saved yet, kept in the player's folder after every action, so that a crash loses nothing. A
// readable text: a line per record, against the tables' files.
//
//   tarnveil-bench 1
//   entry 0 40 120 -30 12 5 1      appearance table, entry: X Y No Counter Power
//   kind 3 0 64 32 32 1 4 10       kind: SX SY Width Height BomType MoveNo Score
//   step 4 12 2.5 0 0 6            pattern, step: DX DY Anime Flag
//   end 3                          how many lines of records; what follows is the rest of an older, longer journal
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "author/table_change.h"

// Replaces the journal by these changes (their `after`). A failure is one line in the log: the work goes on.
void WriteJournal(const std::vector<TableChange>& changes);

struct LeftOver {
    std::vector<TableChange> changes;  // what the journal adds to `files`
    std::string problem;               // line and reason why it cannot be used, or empty
};

// What was left unsaved by the last run, against the files as they are now. Nothing when there is no journal, or when
// it says no more than the files.
LeftOver ReadJournal(const Tables& files);

std::string FormatJournal(const std::vector<TableChange>& changes);

// Puts the journal's records into `tables`. Empty, or what is wrong, with the line number; then `tables` is unchanged.
std::string ParseJournal(std::string_view text, Tables& tables);
