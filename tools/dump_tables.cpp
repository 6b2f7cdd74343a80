#include "dump_tables.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <span>

#include "author/fields.h"

namespace {

// A value that seven digits do not say would be rounded by the build: it is given by its bits.
std::string Text(Single value) {
    const auto bits = std::bit_cast<std::uint32_t>(value);
    if (std::isfinite(value) && std::bit_cast<std::uint32_t>(AsShown(value)) == bits) return TextOf(value);
    char text[40];
    snprintf(text, sizeof text, "\"#%08X\" --[[%.9g]]", bits, static_cast<double>(value));
    return text;
}

std::string Text(int value) {
    return std::to_string(value);
}

// "X = 1, Y = -2.5": every field but those that are plain 0.
std::string FieldList(std::span<const Field> fields, std::string list = {}) {
    for (const Field& field : fields) {
        const std::string text = std::visit([](const auto* value) { return Text(*value); }, field.value);
        if (text == "0") continue;
        if (!list.empty()) list += ", ";
        list += std::string(field.name) + " = " + text;
    }
    return list;
}

// One past the last record that is not all plain zeros.
template <typename Record>
int UsedCount(std::span<Record> records) {
    std::size_t used = records.size();
    while (used > 0 && FieldList(FieldsOf(records[used - 1])).empty()) --used;
    return static_cast<int>(used);
}

std::string DumpMoves(Tables& tables) {
    std::string text;
    for (int p = 0; p < kMovePatterns; ++p) {
        const std::span<EneMoveType> steps(tables.EneMove[p]);
        const int used = UsedCount(steps);
        if (used == 0) continue;
        text += "pattern(nil, " + std::to_string(p) + ")\n";
        for (EneMoveType& step : steps.first(static_cast<std::size_t>(used))) {
            text += "step{" + FieldList(FieldsOf(step)) + "}\n";
        }
    }
    return text;
}

std::string DumpKinds(Tables& tables) {
    std::string text;
    for (int k = 0; k < kEnemyKinds; ++k) {
        const auto fields = FieldsOf(tables.EnemyData[k]);
        if (FieldList(fields).empty()) continue;
        text += "kind{" + FieldList(fields, "number = " + std::to_string(k)) + "}\n";
    }
    return text;
}

std::string DumpStage(std::span<StageDataType> entries) {
    std::string text;
    const int used = UsedCount(entries);
    for (int i = 0; i < used; ++i) {
        text +=
            "entry{" + FieldList(FieldsOf(entries[static_cast<std::size_t>(i)])) + "} -- " + std::to_string(i) + "\n";
    }
    return text;
}

}  // namespace

std::vector<LuaSource> DumpTables(const Tables& tables) {
    Tables copy = tables;  // the field lists point into what they describe
    std::vector<LuaSource> sources = {{kMoveTable.source, DumpMoves(copy)}, {kEnemyTable.source, DumpKinds(copy)}};
    for (std::size_t i = 0; i < kStageTables; ++i) {
        sources.push_back({StageTable(i).source, DumpStage(copy.Stages[i])});
    }
    return sources;
}
