// What an author's action changes in the tables: records with their content before and after. The same list takes the
// action back and does it again.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "author/tables.h"

template <typename Record>
struct RecordChange {
    int table;  // appearance tables: which; patterns: which; kinds: 0
    int index;  // entry, kind or step
    Record before;
    Record after;
};

using TableChange = std::variant<RecordChange<StageDataType>, RecordChange<EnemyDataType>, RecordChange<EneMoveType>>;

// Every record in which the two sets differ, bit for bit. Order: kinds, patterns, appearance tables.
std::vector<TableChange> Differences(const Tables& before, const Tables& after);

enum class Direction { back, forward };

// Puts the records' content before (or after) into the tables. Every index must exist: Differences gives only such.
void Apply(const TableChange& change, Direction direction, Tables& tables);

// The change in words: "entry 40: X 120 → 160, Y -30 → 0"; "kind 3: MoveNo 4 → 7"; "pattern 4, step 12: DX 0 → 2".
std::string Describe(const TableChange& change);
