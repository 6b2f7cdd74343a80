#include "merge_edits.h"

#include <algorithm>
#include <cstdio>
#include <set>

#include "dump_parts.h"
#include "lua_literals.h"
#include "stage/stage_script.h"

namespace {

constexpr std::size_t kNo = 2;  // the field of an entry that says its kind

bool IsKind(double no) {
    return no >= 0 && no < kEnemyKinds;
}

using Lines = std::set<std::pair<std::string, int>>;  // file and number

std::string NumberText(double value) {
    char text[32];
    snprintf(text, sizeof text, "%.7g", value);
    return text;
}

class Finder {
  public:
    Finder(const Workshop& shop, const Spot& spot)
        : shop_(shop),
          spot_(spot),
          sheet_(shop.Wanted()[spot.sheet]),
          source_(shop.SourceOf(spot)),
          differences_(shop.Now().differences[spot.sheet]) {}

    std::vector<Edit> Find();

  private:
    bool IsEntry() const { return sheet_.what == "entry"; }
    bool IsStep() const { return sheet_.what != "entry" && sheet_.what != "kind"; }
    Origin OriginAt(int row) const { return shop_.OriginAt(spot_.sheet, row); }
    std::string Word(std::size_t field, const Row& row) const {
        return shop_.WordFor(spot_.sheet, field, row.values[field]);
    }
    std::string FieldText(std::size_t field, const Row& row) const;
    std::string KindName() const;

    Lines LinesToChange() const;
    void AddNamedLines(const std::string& name, Lines& lines) const;
    void AddNumbers(const std::string& file, const Literal& literal);
    void AddSolved(const std::string& file, const Literal& literal);
    void AddNames(const std::string& file, const Literal& literal);
    void AddFields(const std::string& file, const Literal& literal);
    void AddNumber(const std::string& file, const Literal& literal, double value);

    void AddSpawn();
    void AddArming();
    void AddNewLines();
    void AddRegrouped();
    std::string LineAt(int line) const;
    std::pair<int, int> GroupAround(int line) const;
    int WantedAt(int built) const;
    std::string Written(int first, int end) const;
    std::vector<std::string> NewRecords() const;
    std::string Spawn(const Row& row, const std::string& later) const;
    void AddLine(int line, const std::string& text);
    int BuiltBefore() const;
    int LengthOfRun() const;

    const Workshop& shop_;
    const Spot& spot_;
    const Sheet& sheet_;
    const std::string& source_;
    const std::vector<Difference>& differences_;
    std::vector<Edit> edits_;
};

std::string Finder::FieldText(std::size_t field, const Row& row) const {
    const std::string word = Word(field, row);
    const std::string value = word.empty() ? LuaText(static_cast<Single>(row.values[field])) : Quoted(word);
    return std::string(sheet_.fieldNames[field]) + " = " + value;
}

// The kind that the record speaks of; empty: none with a name.
std::string Finder::KindName() const {
    if (sheet_.what == "kind") {
        return shop_.Now().built->kindNames[std::max(spot_.difference.built, spot_.difference.wanted)];
    }
    return IsEntry() && spot_.difference.built >= 0 ? Word(kNo, shop_.BuiltRow(spot_)) : "";
}

// How many records come, or go, together with this one; 0 when it only changes.
int Finder::LengthOfRun() const {
    const auto same = [&](const Difference& d) {
        return d.built == spot_.difference.built && d.wanted == spot_.difference.wanted;
    };
    const bool comes = spot_.difference.built < 0, goes = spot_.difference.wanted < 0;
    int length = 0;
    for (auto d = std::ranges::find_if(differences_, same); d != differences_.end(); ++d, ++length) {
        if (!(comes && d->built < 0) && !(goes && d->wanted < 0)) break;
    }
    return length;
}

void Finder::AddNumber(const std::string& file, const Literal& literal, double value) {
    const std::string text = NumberText(value);
    edits_.push_back({file, literal.start, literal.end, literal.bound && value < 0 ? "(" + text + ")" : text});
}

// How the record follows the number says how far the number must go.
void Finder::AddSolved(const std::string& file, const Literal& literal) {
    AddNumber(file, literal, literal.value + 1);
    const auto rows = shop_.Probe(edits_.back(), spot_.sheet);
    edits_.pop_back();
    if (rows.size() != shop_.Now().sheets[spot_.sheet].rows.size()) return;
    const Row &before = shop_.BuiltRow(spot_), &wanted = shop_.WantedRow(spot_),
              &after = rows[static_cast<std::size_t>(spot_.difference.built)];
    for (std::size_t i = 0; i < before.fields; ++i) {
        const double missing = wanted.values[i] - before.values[i], follows = after.values[i] - before.values[i];
        if (missing != 0 && follows != 0) AddNumber(file, literal, literal.value + missing / follows);
    }
}

void Finder::AddNumbers(const std::string& file, const Literal& literal) {
    if (const int run = LengthOfRun(); run > 0) {
        AddNumber(file, literal, literal.value + run);
        AddNumber(file, literal, literal.value - run);
        return;
    }
    AddSolved(file, literal);
    // It may be the number of a step: what happens there moves to where else something differs.
    constexpr int kFurthest = 3;
    int tried = 0;
    for (const Difference& other : differences_) {
        if (!IsStep() || other.wanted <= spot_.difference.wanted || ++tried > kFurthest) continue;
        AddNumber(file, literal, literal.value + other.wanted - spot_.difference.wanted);
    }
}

void Finder::AddNames(const std::string& file, const Literal& literal) {
    if (!shop_.IsPair(spot_)) return;
    const Row &before = shop_.BuiltRow(spot_), &after = shop_.WantedRow(spot_);
    const std::string word = shop_.Sources().at(file).substr(literal.start + 1, literal.end - literal.start - 2);
    for (std::size_t i = 0; i < before.fields; ++i) {
        const std::string name = Word(i, after);
        if (!name.empty() && word == Word(i, before))
            edits_.push_back({file, literal.start, literal.end, Quoted(name)});
    }
}

// Fields that were left out because they were 0.
void Finder::AddFields(const std::string& file, const Literal& literal) {
    if (!shop_.IsPair(spot_)) return;
    const Row &before = shop_.BuiltRow(spot_), &after = shop_.WantedRow(spot_);
    const std::string& source = shop_.Sources().at(file);
    const std::size_t end = source.find_last_not_of(' ', literal.start - 1) + 1;
    for (std::size_t i = 0; i < before.fields; ++i) {
        if (before.values[i] != 0 || after.values[i] == 0) continue;
        edits_.push_back({file, end, end, (source[end - 1] == '{' ? " " : ", ") + FieldText(i, after)});
    }
}

// Where a kind has its name, in sources of no stage.
void Finder::AddNamedLines(const std::string& name, Lines& lines) const {
    const std::span stages(shop_.Wanted().end() - kStageTables, shop_.Wanted().end());
    for (const auto& [file, source] : shop_.Sources()) {
        if (std::ranges::find(stages, file, &Sheet::source) != stages.end()) continue;
        for (const Literal& literal : LiteralsOf(source)) {
            const std::string word = source.substr(literal.start, literal.end - literal.start);
            const bool names = word == '"' + name + '"' || word == '\'' + name + '\'';
            if (names) lines.emplace(file, literal.line);
        }
    }
}

// From the line of the record before it to its own, with a few above.
Lines Finder::LinesToChange() const {
    constexpr int kNearest = 5, kFurthest = 12;
    Lines lines;
    const auto add = [&](int from, int to) {
        const int first = std::max(to - kFurthest, std::min(from, to - kNearest));
        for (int line = first; line <= to; ++line) lines.emplace(sheet_.source, line);
    };
    const int row = spot_.difference.built >= 0 ? spot_.difference.built : BuiltBefore() + 1;
    const Origin own = OriginAt(row), before = OriginAt(row - 1);
    add(before.outer, own.outer);
    add(before.inner, own.inner);
    const std::string kind = KindName();
    if (!kind.empty()) AddNamedLines(kind, lines);
    return lines;
}

// An enemy on a time line: places are the middle of the sprite there.
std::string Finder::Spawn(const Row& row, const std::string& later) const {
    const auto kind = static_cast<std::size_t>(row.values[kNo]);
    const int half = shop_.Now().built->tables.EnemyData[kind].Width / 2;
    const double x = row.values[0] == kRandomX ? row.values[0] : row.values[0] + half;
    return "spawn(" + Quoted(Word(kNo, row)) + ", " + NumberText(x) + ", " + NumberText(row.values[1]) + ", " + later +
           ", " + NumberText(row.values[4]) + ")";
}

// A call that spawns this one enemy, with everything about it.
void Finder::AddSpawn() {
    if (!IsEntry() || !shop_.IsPair(spot_) || !IsKind(shop_.WantedRow(spot_).values[kNo])) return;
    const int line = OriginAt(spot_.difference.built).inner;
    const std::size_t start = source_.find("spawn(", LineStart(source_, line)), end = source_.find(')', start);
    if (end >= LineStart(source_, line + 1)) return;
    edits_.push_back({sheet_.source, start, end + 1, Spawn(shop_.WantedRow(spot_), "0")});
}

// A shot while flying: before the line that flies.
void Finder::AddArming() {
    if (!IsStep() || !shop_.IsPair(spot_)) return;
    const Origin own = OriginAt(spot_.difference.built);
    int first = spot_.difference.built;
    while (first > 0 && OriginAt(first - 1).inner == own.inner) --first;
    const std::string code = NumberText(shop_.WantedRow(spot_).values[3]);
    AddLine(own.inner, "arm(" + code + ", " + std::to_string(spot_.difference.built - first) + ")");
}

std::vector<std::string> Finder::NewRecords() const {
    const Row& row = shop_.WantedRow(spot_);
    std::string list;
    for (const std::size_t i :
         IsEntry() ? std::vector<std::size_t>{kNo, 0, 1, 3, 4} : std::vector<std::size_t>{0, 1, 2, 3}) {
        const bool left = row.values[i] == 0 && !(IsEntry() && i == kNo);
        if (!left) list += (list.empty() ? "" : ", ") + FieldText(i, row);
    }
    if (!IsEntry()) return {"step { " + list + " }"};
    std::vector<std::string> records = {"entry { " + list + " }"};
    if (!IsKind(row.values[kNo])) return records;
    const std::string later = NumberText(row.values[3]);
    records.push_back("wait(" + later + ") " + Spawn(row, "0"));
    records.push_back(Spawn(row, later));
    return records;
}

// As a new line, which is as far to the right as the one above it.
void Finder::AddLine(int line, const std::string& text) {
    const std::size_t at = LineStart(source_, line);
    const std::size_t above = line > 1 ? LineStart(source_, line - 1) : at;
    const std::size_t indent = std::min(source_.find_first_not_of(' ', above), source_.size()) - above;
    edits_.push_back({sheet_.source, at, at, std::string(indent, ' ') + text + "\n"});
}

// The record that is built before the new one.
int Finder::BuiltBefore() const {
    int before = spot_.difference.wanted - 1;
    for (const Difference& other : differences_) {
        if (other.built < 0 && other.wanted < spot_.difference.wanted) --before;
        if (other.wanted < 0 && other.built <= before) ++before;
    }
    return before;
}

void Finder::AddNewLines() {
    const int before = BuiltBefore();
    const Origin from = OriginAt(before), to = OriginAt(before + 1);
    std::set<int> places;
    for (int line = from.outer; line <= std::max(from.outer, to.outer - 1); ++line) places.insert(line + 1);
    for (int line = from.inner; line <= std::max(from.inner, to.inner - 1); ++line) places.insert(line + 1);
    for (const int line : places) {
        for (const std::string& record : NewRecords()) AddLine(line, record);
    }
}

std::string Finder::LineAt(int line) const {
    const std::size_t start = LineStart(source_, line);
    return source_.substr(start, LineStart(source_, line + 1) - start);
}

// The lines of the statement that writes a group as a dump does: a word of groups.lua or a loop. Zeros: it is none.
std::pair<int, int> Finder::GroupAround(int line) const {
    const auto begins = [&](int at, const char* word) { return LineAt(at).starts_with(word); };
    if (IsStep())
        return begins(line, "for ") && LineAt(line).ends_with("end\n") ? std::pair(line, line) : std::pair(0, 0);
    for (const char* word : {"stream {", "row {", "stairs {", "swarm {"}) {
        if (begins(line, word)) return {line, line};
    }
    int first = line, last = line;
    while (first > 1 && begins(first, "    entry {")) --first;
    while (begins(last, "    entry {")) ++last;
    return begins(first, "for ") && begins(last, "end") && first < line ? std::pair(first, last) : std::pair(0, 0);
}

// The wanted record at which the built record `built` is reached, when all new ones before it have been passed.
int Finder::WantedAt(int built) const {
    int wanted = built;
    for (const Difference& difference : differences_) {
        if (difference.wanted < 0 && difference.built < built) --wanted;
        if (difference.built < 0 && difference.wanted <= wanted) ++wanted;
    }
    return wanted;
}

std::string Finder::Written(int first, int end) const {
    const Tables& tables = shop_.WantedTables();
    const auto start = static_cast<std::size_t>(first), count = static_cast<std::size_t>(end - first);
    if (IsStep()) return DumpSteps(std::span(tables.EneMove[spot_.sheet]).subspan(start, count), FlagWords());
    TableNames names;
    std::ranges::copy(shop_.Now().built->kindNames, names.kinds.begin());
    const std::size_t table = spot_.sheet + kStageTables - shop_.Wanted().size();
    return DumpEntries(std::span(tables.Stages[table]).subspan(start, count), KindWords(names), start);
}

// A group that is no longer one, as the smaller ones that it has become.
void Finder::AddRegrouped() {
    if (!IsEntry() && !IsStep()) return;
    const int row = spot_.difference.built >= 0 ? spot_.difference.built : BuiltBefore();
    const auto [firstLine, lastLine] = GroupAround(std::max(OriginAt(row).inner, 1));
    if (firstLine == 0) return;
    const auto inGroup = [&, from = firstLine, to = lastLine](int at) {
        return OriginAt(at).inner >= from && OriginAt(at).inner <= to;
    };
    const int rows = static_cast<int>(shop_.Now().sheets[spot_.sheet].rows.size());
    int first = row, end = row + 1;
    while (first > 0 && inGroup(first - 1)) --first;
    while (end < rows && inGroup(end)) ++end;
    const int from = WantedAt(first), to = WantedAt(end);
    if (from > to || to > static_cast<int>(sheet_.rows.size())) return;
    edits_.push_back(
        {sheet_.source, LineStart(source_, firstLine), LineStart(source_, lastLine + 1), Written(from, to)});
}

std::vector<Edit> Finder::Find() {
    const Lines lines = LinesToChange();
    for (const auto& [file, source] : shop_.Sources()) {
        for (const Literal& literal : LiteralsOf(source)) {
            if (!lines.contains({file, literal.line})) continue;
            if (literal.kind == Literal::Kind::number) AddNumbers(file, literal);
            if (literal.kind == Literal::Kind::text) AddNames(file, literal);
            if (literal.kind == Literal::Kind::tableEnd) AddFields(file, literal);
        }
    }
    AddSpawn();
    AddArming();
    AddRegrouped();
    if (spot_.difference.built < 0) AddNewLines();
    if (spot_.difference.wanted < 0) {
        const int line = OriginAt(spot_.difference.built).inner;
        edits_.push_back({sheet_.source, LineStart(source_, line), LineStart(source_, line + 1), ""});
    }
    return std::move(edits_);
}

}  // namespace

std::size_t LineStart(const std::string& source, int line) {
    std::size_t at = 0;
    for (int i = 1; i < line && at < source.size(); ++i) {
        at = std::min(source.find('\n', at), source.size() - 1) + 1;
    }
    return at;
}

std::vector<Edit> EditsFor(const Workshop& shop, const Spot& spot) {
    return Finder(shop, spot).Find();
}
