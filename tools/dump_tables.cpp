#include "dump_tables.h"

#include "author/names.h"
#include "author/pattern_run.h"
#include "dump_parts.h"

namespace {

// One past the last record that is not all plain zeros.
template <typename Record>
std::size_t UsedCount(std::span<const Record> records) {
    std::size_t used = records.size();
    while (used > 0 && ListOf(CellsOf(records[used - 1], {})).empty()) --used;
    return used;
}

std::string FireCodesOf(const EneMoveType (&script)[kMoveSteps], const PatternRun& run) {
    std::set<int> codes;
    for (std::size_t i = 0; i < kMoveSteps; ++i) {
        const Byte flag = script[i].Flag;
        if (run.used[i] && flag >= kFirstFireCode && flag <= kLastFireCode) codes.insert(flag);
    }
    std::string text;
    for (const int code : codes) text += (text.empty() ? "; fires " : ", ") + std::to_string(code);
    return text;
}

// What its enemies do, for the reader.
std::string Remark(const EneMoveType (&script)[kMoveSteps]) {
    const PatternRun run = RunPattern(script);
    const std::string where = std::to_string(run.where);
    std::string text = "ends at step " + where;
    if (run.end == PatternEnd::loops) text = "goes round for ever";
    if (run.end == PatternEnd::leaves) text = "leaves the table at step " + where;
    return " -- " + text + FireCodesOf(script, run) + "\n";
}

std::string NameOr(const std::string& name) {
    return name.empty() ? "nil" : Quoted(name);
}

std::string DumpMoves(const Tables& tables, const TableNames& names, Words& patterns) {
    const Words flags = FlagWords();
    std::string text;
    for (std::size_t p = 0; p < kMovePatterns; ++p) {
        const std::span<const EneMoveType> steps(tables.EneMove[p]);
        const std::size_t used = UsedCount(steps);
        if (used == 0) continue;
        const std::string& name = names.patterns[p];
        if (!name.empty()) patterns.emplace(static_cast<Integer>(p), Quoted(name));
        text += (text.empty() ? "pattern(" : "\npattern(") + NameOr(name) + ", " + std::to_string(p) + ")" +
                Remark(tables.EneMove[p]) + DumpSteps(steps.first(used), flags);
    }
    return text;
}

std::string DumpKinds(const Tables& tables, const TableNames& names, const Words& patterns, Words& kinds) {
    static const Names kNamed;
    std::string text;
    for (std::size_t k = 0; k < kEnemyKinds; ++k) {
        EnemyDataType kind = tables.EnemyData[k];  // the fields point into it
        const std::string list = ListOf(CellsOf(FieldsOf(kind, &kNamed), patterns));
        if (ListOf(CellsOf(FieldsOf(kind), {})).empty()) continue;
        const std::string& name = names.kinds[k];
        if (!name.empty()) kinds.emplace(static_cast<Integer>(k), Quoted(name));
        text += "kind { number = " + std::to_string(k) + (name.empty() ? "" : ", name = " + Quoted(name)) + ", " +
                list + " }\n";
    }
    return text;
}

std::string DumpStage(std::span<const StageDataType> entries, const Words& words) {
    const std::string text = DumpEntries(entries.first(UsedCount(entries)), words);
    return std::string("include \"") + kGroupsFile + "\"\n\n" + text;
}

}  // namespace

Words FlagWords() {
    Words words = WordsOf(kStepNames);
    words.erase(0);  // the usual step needs no word
    return words;
}

Words KindWords(const TableNames& names) {
    Words words = WordsOf(kCommandNames);
    for (std::size_t i = 0; i < kEnemyKinds; ++i) {
        if (!names.kinds[i].empty()) words.emplace(static_cast<Integer>(i), Quoted(names.kinds[i]));
    }
    return words;
}

TableNames NumberedNames() {
    TableNames names;
    for (std::size_t i = 0; i < kMovePatterns; ++i) names.patterns[i] = "pattern_" + std::to_string(i);
    for (std::size_t i = 0; i < kEnemyKinds; ++i) names.kinds[i] = "kind_" + std::to_string(i);
    return names;
}

std::vector<LuaSource> DumpTables(const Tables& tables, const TableNames& names) {
    Words patterns, words = WordsOf(kCommandNames);
    std::vector<LuaSource> sources;
    sources.push_back({kMoveTable.source, DumpMoves(tables, names, patterns)});
    sources.push_back({kEnemyTable.source, DumpKinds(tables, names, patterns, words)});
    for (std::size_t i = 0; i < kStageTables; ++i) {
        sources.push_back({StageTable(i).source, DumpStage(tables.Stages[i], words)});
    }
    sources.push_back({kGroupsFile, kGroupsText});
    return sources;
}
