// The two kinds of sources with something to group in them; called by DumpTables.
#pragma once

#include <algorithm>
#include <set>
#include <span>

#include "dump_tables.h"
#include "lua_text.h"
#include "toolkit/rounding.h"

// Words for Flag and No.
Words FlagWords();
Words KindWords(const TableNames& names);

// The steps of one pattern that are in use, or some of them. `words` are those of Flag.
std::string DumpSteps(std::span<const EneMoveType> steps, const Words& words);

// The entries in use of one appearance table, or some of them that begin with number `first`. `words` are those of No.
std::string DumpEntries(std::span<const StageDataType> entries, const Words& words, std::size_t first = 0);

inline constexpr const char* kGroupsFile = "groups.lua";
extern const char* const kGroupsText;

inline Cells CellsOf(EneMoveType step, const Words& words) {
    static const Names kNamed;
    return CellsOf(FieldsOf(step, &kNamed), words);
}
inline Cells CellsOf(StageDataType entry, const Words& words) {
    static const Names kNamed;
    return CellsOf(FieldsOf(entry, &kNamed), words);
}

// The record that a jump back at `at` leads to, if `place` is a whole number that says one; -1: it gets no name.
inline int JumpTarget(Single place, std::size_t at) {
    const bool whole = place >= 0 && place <= static_cast<Single>(at) && place == std::floor(place);
    return whole ? static_cast<int>(place) : -1;
}

inline std::string TargetName(std::size_t at) {
    return "from_" + std::to_string(at);
}

// One past the last record that may stand in a group beginning at `at`: a target is the first of its group.
inline std::size_t EndOfStretch(const std::set<int>& targets, std::size_t at, std::size_t count) {
    const auto next = targets.upper_bound(static_cast<int>(at));
    return next == targets.end() ? count : std::min(count, static_cast<std::size_t>(*next));
}
