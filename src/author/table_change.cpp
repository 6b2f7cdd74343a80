#include "author/table_change.h"

#include <bit>
#include <span>

#include "toolkit/numbers.h"

namespace {

struct Number {
    const char* name;
    double value;
    std::uint32_t bits;
};

Number Of(const char* name, Single value) {
    return {name, value, std::bit_cast<std::uint32_t>(value)};
}
Number Of(const char* name, int value) {
    return {name, static_cast<double>(value), static_cast<std::uint32_t>(value)};
}

std::vector<Number> NumbersOf(const StageDataType& e) {
    return {Of("X", e.X), Of("Y", e.Y), Of("No", e.No), Of("Counter", e.Counter), Of("Power", e.Power)};
}
std::vector<Number> NumbersOf(const EnemyDataType& k) {
    return {Of("SX", k.SX),           Of("SY", k.SY),         Of("Width", k.Width), Of("Height", k.Height),
            Of("BomType", k.BomType), Of("MoveNo", k.MoveNo), Of("Score", k.Score)};
}
std::vector<Number> NumbersOf(const EneMoveType& s) {
    return {Of("DX", s.DX), Of("DY", s.DY), Of("Anime", s.Anime), Of("Flag", s.Flag)};
}

// Bit for bit: what is no number equals itself, and zeros of different sign differ.
std::uint32_t Bits(Single value) {
    return std::bit_cast<std::uint32_t>(value);
}
bool Same(const StageDataType& a, const StageDataType& b) {
    return Bits(a.X) == Bits(b.X) && Bits(a.Y) == Bits(b.Y) && a.No == b.No && a.Counter == b.Counter &&
           a.Power == b.Power;
}
bool Same(const EnemyDataType& a, const EnemyDataType& b) {
    return a == b;
}
bool Same(const EneMoveType& a, const EneMoveType& b) {
    return Bits(a.DX) == Bits(b.DX) && Bits(a.DY) == Bits(b.DY) && a.Anime == b.Anime && a.Flag == b.Flag;
}

template <typename Record>
void Compare(int table, std::span<const Record> before, std::span<const Record> after, std::vector<TableChange>& out) {
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (Same(before[i], after[i])) continue;
        out.push_back(RecordChange<Record>{table, static_cast<int>(i), before[i], after[i]});
    }
}

StageDataType& RecordIn(Tables& tables, const RecordChange<StageDataType>& change) {
    return tables.Stages[change.table][change.index];
}
EnemyDataType& RecordIn(Tables& tables, const RecordChange<EnemyDataType>& change) {
    return tables.EnemyData[change.index];
}
EneMoveType& RecordIn(Tables& tables, const RecordChange<EneMoveType>& change) {
    return tables.EneMove[change.table][change.index];
}

std::string WhereIs(const RecordChange<StageDataType>& change) {
    return "entry " + std::to_string(change.index);
}
std::string WhereIs(const RecordChange<EnemyDataType>& change) {
    return "kind " + std::to_string(change.index);
}
std::string WhereIs(const RecordChange<EneMoveType>& change) {
    return "pattern " + std::to_string(change.table) + ", step " + std::to_string(change.index);
}

}  // namespace

std::vector<TableChange> Differences(const Tables& before, const Tables& after) {
    std::vector<TableChange> changes;
    Compare<EnemyDataType>(0, before.EnemyData, after.EnemyData, changes);
    for (int p = 0; p < kMovePatterns; ++p) Compare<EneMoveType>(p, before.EneMove[p], after.EneMove[p], changes);
    for (int t = 0; t < kStageTables; ++t) Compare<StageDataType>(t, before.Stages[t], after.Stages[t], changes);
    return changes;
}

void Apply(const TableChange& change, Direction direction, Tables& tables) {
    std::visit([&](const auto& c) { RecordIn(tables, c) = direction == Direction::forward ? c.after : c.before; },
               change);
}

std::string Describe(const TableChange& change) {
    return std::visit(
        [](const auto& c) {
            std::string text = WhereIs(c) + ":";
            const auto before = NumbersOf(c.before), after = NumbersOf(c.after);
            for (std::size_t i = 0; i < before.size(); ++i) {
                if (before[i].bits == after[i].bits) continue;
                if (text.back() != ':') text += ',';
                text += std::string(" ") + before[i].name + " " + TextOf(static_cast<Single>(before[i].value)) + " → " +
                        TextOf(static_cast<Single>(after[i].value));
            }
            return text;
        },
        change);
}
