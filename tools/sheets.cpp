#include "sheets.h"

#include <algorithm>
#include <bit>
#include <cstdint>

#include "author/fields.h"

namespace {

template <typename Record>
std::span<const std::string_view> NamesOfFields() {
    static const auto names = [] {
        Record record;
        const auto fields = FieldsOf(record);
        std::array<std::string_view, std::tuple_size_v<decltype(fields)>> list;
        std::ranges::transform(fields, list.begin(), &Field::name);
        return list;
    }();
    return names;
}

template <typename Record>
Row RowOf(Record record) {
    Row row;
    for (const Field& field : FieldsOf(record)) {
        row.values[row.fields++] =
            std::visit([](const auto* value) { return static_cast<double>(*value); }, field.value);
    }
    return row;
}

template <typename Record>
Sheet SheetOf(std::string source, std::string what, bool movesUp, std::span<const Record> records) {
    Sheet sheet{std::move(source), std::move(what), NamesOfFields<Record>().data(), movesUp, {}};
    std::ranges::transform(records, std::back_inserter(sheet.rows), RowOf<Record>);
    const Row zeros = RowOf(Record{});
    while (!sheet.rows.empty() && sheet.rows.back().Differences(zeros) == 0) sheet.rows.pop_back();
    return sheet;
}

// Costs from each pair of places to the ends of both sheets.
class Costs {
  public:
    Costs(std::span<const Row> built, std::span<const Row> wanted, bool movesUp)
        : built_(built), wanted_(wanted), movesUp_(movesUp), costs_((built.size() + 1) * (wanted.size() + 1)) {
        for (std::size_t b = built.size() + 1; b-- > 0;) {
            for (std::size_t w = wanted.size() + 1; w-- > 0;) At(b, w) = Cheapest(b, w);
        }
    }

    int& At(std::size_t b, std::size_t w) { return costs_[b * (wanted_.size() + 1) + w]; }

    bool MayPair(std::size_t b, std::size_t w) const { return b < built_.size() && w < wanted_.size(); }
    int PairCost(std::size_t b, std::size_t w) const { return built_[b].Differences(wanted_[w]); }
    // A record may come or go where the others move; at the end of a sheet always.
    bool MayGo(std::size_t b, std::size_t w) const { return b < built_.size() && (movesUp_ || w == wanted_.size()); }
    bool MayCome(std::size_t b, std::size_t w) const { return w < wanted_.size() && (movesUp_ || b == built_.size()); }

  private:
    int Cheapest(std::size_t b, std::size_t w) {
        if (b == built_.size() && w == wanted_.size()) return 0;
        constexpr int kNever = 1 << 28;
        int best = kNever;
        if (MayPair(b, w)) best = PairCost(b, w) + At(b + 1, w + 1);
        if (MayGo(b, w)) best = std::min(best, kRecordCost + At(b + 1, w));
        if (MayCome(b, w)) best = std::min(best, kRecordCost + At(b, w + 1));
        return best;
    }

    std::span<const Row> built_, wanted_;
    bool movesUp_;
    std::vector<int> costs_;
};

}  // namespace

bool SameValue(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

int Row::Differences(const Row& other) const {
    int count = 0;
    for (std::size_t i = 0; i < fields; ++i) count += !SameValue(values[i], other.values[i]);
    return count;
}

std::vector<Sheet> SheetsOf(const Tables& tables) {
    std::vector<Sheet> sheets;
    sheets.reserve(kMovePatterns + 1 + kStageTables);
    for (int p = 0; p < kMovePatterns; ++p) {
        sheets.push_back(SheetOf<EneMoveType>(kMoveTable.source, "pattern " + std::to_string(p) + ", step", true,
                                              tables.EneMove[p]));
    }
    sheets.push_back(SheetOf<EnemyDataType>(kEnemyTable.source, "kind", false, tables.EnemyData));
    for (std::size_t i = 0; i < kStageTables; ++i) {
        sheets.push_back(SheetOf<StageDataType>(StageTable(i).source, "entry", true, tables.Stages[i]));
    }
    return sheets;
}

std::vector<std::span<const Origin>> OriginsOf(const BuiltTables& built) {
    std::vector<std::span<const Origin>> origins(std::begin(built.stepOrigins), std::end(built.stepOrigins));
    origins.emplace_back(built.kindOrigins);
    origins.insert(origins.end(), std::begin(built.entryOrigins), std::end(built.entryOrigins));
    return origins;
}

std::vector<Difference> DifferencesOf(const Sheet& built, const Sheet& wanted) {
    // What is equal at both ends is left out: the work goes by the square of the rest.
    std::size_t start = 0, builtEnd = built.rows.size(), wantedEnd = wanted.rows.size();
    const auto same = [&](std::size_t b, std::size_t w) { return built.rows[b].Differences(wanted.rows[w]) == 0; };
    while (start < std::min(builtEnd, wantedEnd) && same(start, start)) ++start;
    const bool ends = built.movesUp || builtEnd == wantedEnd;
    while (ends && std::min(builtEnd, wantedEnd) > start && same(builtEnd - 1, wantedEnd - 1)) --builtEnd, --wantedEnd;

    Costs costs(std::span(built.rows).subspan(start, builtEnd - start),
                std::span(wanted.rows).subspan(start, wantedEnd - start), built.movesUp);
    std::vector<Difference> differences;
    for (std::size_t b = 0, w = 0; start + b < builtEnd || start + w < wantedEnd;) {
        const int here = costs.At(b, w), from = static_cast<int>(start + b), to = static_cast<int>(start + w);
        if (costs.MayPair(b, w) && here == costs.PairCost(b, w) + costs.At(b + 1, w + 1)) {
            if (costs.PairCost(b, w) > 0) differences.push_back({from, to, costs.PairCost(b, w)});
            ++b, ++w;
        } else if (costs.MayGo(b, w) && here == kRecordCost + costs.At(b + 1, w)) {
            differences.push_back({from, -1, kRecordCost});
            ++b;
        } else {
            differences.push_back({-1, to, kRecordCost});
            ++w;
        }
    }
    return differences;
}

int CostOf(std::span<const Difference> differences) {
    int cost = 0;
    for (const Difference& difference : differences) cost += difference.cost;
    return cost;
}

std::string Describe(const Difference& difference, const Sheet& built, const Sheet& wanted) {
    const auto numbered = [&](int number) { return built.what + " " + std::to_string(number); };
    if (difference.wanted < 0) return numbered(difference.built) + " is gone";
    if (difference.built < 0) return numbered(difference.wanted) + " is new";
    const Row &before = built.rows[static_cast<std::size_t>(difference.built)],
              &after = wanted.rows[static_cast<std::size_t>(difference.wanted)];
    std::string text = numbered(difference.wanted) + ":";
    for (std::size_t i = 0; i < before.fields; ++i) {
        if (SameValue(before.values[i], after.values[i])) continue;
        if (text.back() != ':') text += ',';
        text += " " + std::string(built.fieldNames[i]) + " " + TextOf(static_cast<Single>(before.values[i])) + " → " +
                TextOf(static_cast<Single>(after.values[i]));
    }
    return text;
}
