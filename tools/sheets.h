// Two sets of tables laid side by side: which records differ, come in between or are missing.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "author/tables.h"
#include "lua_tables.h"

// A record as numbers, in the order of its fields.
struct Row {
    std::array<double, 7> values{};
    std::size_t fields = 0;

    int Differences(const Row& other) const;  // fields
};

// Bit for bit, as files hold them: what is no number equals itself, 0 and -0 differ.
bool SameValue(double a, double b);

// A sequence of records that one source makes.
struct Sheet {
    std::string source;  // the Lua file
    std::string what;    // "entry", "pattern 3, step", "kind"
    const std::string_view* fieldNames;
    bool movesUp;           // records that come in between push the others on; else each has its number
    std::vector<Row> rows;  // up to the last that is not all zero
};

// Patterns, kinds, appearance tables: always as many sheets in the same order.
std::vector<Sheet> SheetsOf(const Tables& tables);

// The same order for where the records were made.
std::vector<std::span<const Origin>> OriginsOf(const BuiltTables& built);

// A difference between two sheets: a record of the one, of the other, or both when they stand for each other.
struct Difference {
    int built;   // -1: a new record comes in between
    int wanted;  // -1: the record is gone
    int cost;
};

// The cheapest way from `built` to `wanted`, in order. A changed field costs 1, a record that comes or goes
// kRecordCost.
inline constexpr int kRecordCost = 3;
std::vector<Difference> DifferencesOf(const Sheet& built, const Sheet& wanted);

int CostOf(std::span<const Difference> differences);

// "entry 40: X 120 → 160", "entry 41 is new", "entry 12 is gone"
std::string Describe(const Difference& difference, const Sheet& built, const Sheet& wanted);
