#include "author/edit_entries.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <limits>
#include <memory>
#include <vector>

#include "stage/stage_script.h"
#include "state/field_size.h"
#include "toolkit/rounding.h"

namespace {

bool Exists(const EntryRange& range) {
    return range.table >= 0 && range.table < kStageTables && range.first >= 0 && range.first <= range.last &&
           range.last < kStageEntries;
}

std::string NoSuchRange(const EntryRange& range) {
    return "there are no entries " + std::to_string(range.first) + ".." + std::to_string(range.last);
}

constexpr const char* kTableFull = "the table is full: entry 512 is in use";

// A table to be rearranged: each entry knows where it stood.
struct Placed {
    StageDataType entry;
    int from;  // -1: new
};

std::vector<Placed> Take(const Tables& tables, int table) {
    std::vector<Placed> list;
    list.reserve(2 * kStageEntries);
    for (int i = 0; i < kStageEntries; ++i) list.push_back({tables.Stages[table][i], i});
    return list;
}

bool IsEnemy(const StageDataType& entry) {
    return entry.No >= 0 && entry.No < kEnemyKinds;
}

bool JumpsBack(const StageDataType& entry) {
    const auto target = RoundTo<Integer>(entry.X);
    return entry.No == kRepeat && target >= 0 && target < kStageEntries;
}

// What is over 513 entries is left away; the caller has seen to it that it is empty.
void Put(const std::vector<Placed>& list, Tables& tables, int table) {
    std::vector<int> now(kStageEntries, -1);
    for (int i = 0; i < kStageEntries; ++i) {
        const int from = list[static_cast<std::size_t>(i)].from;
        if (from >= 0) now[static_cast<std::size_t>(from)] = i;
    }
    for (int i = 0; i < kStageEntries; ++i) {
        StageDataType entry = list[static_cast<std::size_t>(i)].entry;
        if (JumpsBack(entry)) {
            const int target = now[static_cast<std::size_t>(RoundTo<Integer>(entry.X))];
            if (target >= 0) entry.X = static_cast<Single>(target);
        }
        tables.Stages[table][i] = entry;
    }
}

void FillUp(std::vector<Placed>& list) {
    while (static_cast<int>(list.size()) < kStageEntries) list.push_back({{}, -1});
}

std::string ForEach(Tables& tables, const EntryRange& range, const std::function<void(StageDataType&)>& change) {
    if (!Exists(range)) return NoSuchRange(range);
    for (int i = range.first; i <= range.last; ++i) change(tables.Stages[range.table][i]);
    return {};
}

}  // namespace

int EntriesInUse(const Tables& tables, int table) {
    int used = kStageEntries;
    while (used > 0 && tables.Stages[table][used - 1] == StageDataType{}) --used;
    return used;
}

std::string InsertEntry(Tables& tables, int table, int at) {
    const EntryRange place{table, at, at};
    if (!Exists(place)) return NoSuchRange(place);
    if (EntriesInUse(tables, table) == kStageEntries) return kTableFull;
    auto list = Take(tables, table);
    list.insert(list.begin() + at, {{}, -1});
    Put(list, tables, table);
    return {};
}

std::string DeleteEntries(Tables& tables, const EntryRange& range) {
    if (!Exists(range)) return NoSuchRange(range);
    auto list = Take(tables, range.table);
    list.erase(list.begin() + range.first, list.begin() + range.last + 1);
    FillUp(list);
    Put(list, tables, range.table);
    return {};
}

std::string MoveEntries(Tables& tables, const EntryRange& range, int before) {
    if (!Exists(range)) return NoSuchRange(range);
    before = std::clamp(before, 0, EntriesInUse(tables, range.table));
    auto list = Take(tables, range.table);
    const auto first = list.begin() + range.first, end = list.begin() + range.last + 1;
    if (before < range.first) std::rotate(list.begin() + before, first, end);
    if (before > range.last + 1) std::rotate(first, end, list.begin() + before);
    Put(list, tables, range.table);
    return {};
}

std::string DuplicateEntries(Tables& tables, const EntryRange& range) {
    if (!Exists(range)) return NoSuchRange(range);
    const int count = range.last - range.first + 1;
    if (EntriesInUse(tables, range.table) + count > kStageEntries) return kTableFull;
    auto list = Take(tables, range.table);
    std::vector<Placed> copy(list.begin() + range.first, list.begin() + range.last + 1);
    for (Placed& placed : copy) placed.from = -1;
    list.insert(list.begin() + range.last + 1, copy.begin(), copy.end());
    Put(list, tables, range.table);
    return {};
}

std::string RepeatEntries(Tables& tables, const EntryRange& range, const Wave& wave) {
    if (!Exists(range)) return NoSuchRange(range);
    if (wave.copies < 1 || wave.copies >= kStageEntries) return "a wave has 1 to 512 copies";
    if (wave.frames < 0) return "a wave cannot go back in time";
    auto next = std::make_unique<Tables>(tables);
    const int length = range.last - range.first + 1;
    for (int n = wave.copies; n >= 1; --n) {  // all of them from the range itself, the last one first
        std::string problem = DuplicateEntries(*next, range);
        if (!problem.empty()) return problem;
        StageDataType* copy = next->Stages[range.table] + range.last + 1;
        copy[0].Counter = static_cast<Integer>(std::min<int>(wave.frames, std::numeric_limits<Integer>::max()));
        for (int i = 0; i < length; ++i) {
            if (IsEnemy(copy[i]) && copy[i].X != kRandomX) copy[i].X += static_cast<Single>(n) * wave.across;
        }
    }
    tables = *next;
    return {};
}

std::string ShiftCounters(Tables& tables, const EntryRange& range, int frames) {
    return ForEach(tables, range, [&](StageDataType& entry) {
        const int most = std::numeric_limits<Integer>::max();
        entry.Counter = static_cast<Integer>(std::clamp(entry.Counter + std::clamp(frames, -most, most), 0, most));
    });
}

std::string MirrorX(Tables& tables, const EntryRange& range) {
    return ForEach(tables, range, [&](StageDataType& entry) {
        if (!IsEnemy(entry) || entry.X == kRandomX) return;
        entry.X = static_cast<Single>(kFieldWidth - tables.EnemyData[entry.No].Width) - entry.X;
    });
}
