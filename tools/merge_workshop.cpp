#include "merge_workshop.h"

#include <algorithm>

#include "author/names.h"
#include "host/file_sets.h"

namespace {

std::string Applied(const std::string& source, const Edit& edit) {
    return source.substr(0, edit.start) + edit.text + source.substr(edit.end);
}

// Which fields of the wanted record are not built; all of them for a new one.
unsigned WrongFields(const Difference& difference, const Sheet& built, const Sheet& wanted) {
    if (difference.built < 0) return ~0U;
    const Row &is = built.rows[static_cast<std::size_t>(difference.built)],
              &shall = wanted.rows[static_cast<std::size_t>(difference.wanted)];
    unsigned fields = 0;
    for (std::size_t i = 0; i < is.fields; ++i) fields |= unsigned{!SameValue(is.values[i], shall.values[i])} << i;
    return fields;
}

}  // namespace

const Row& Workshop::WantedRow(const Spot& spot) const {
    return wanted_[spot.sheet].rows[static_cast<std::size_t>(spot.difference.wanted)];
}

const Row& Workshop::BuiltRow(const Spot& spot) const {
    return now_.sheets[spot.sheet].rows[static_cast<std::size_t>(spot.difference.built)];
}

Origin Workshop::OriginAt(std::size_t sheet, int row) const {
    const int last = static_cast<int>(now_.sheets[sheet].rows.size()) - 1;
    if (last < 0 || row < 0) return {};
    return OriginsOf(*now_.built)[sheet][static_cast<std::size_t>(std::min(row, last))];
}

std::string Workshop::WordFor(std::size_t sheet, std::size_t field, double value) const {
    const std::string_view name = wanted_[sheet].fieldNames[field];
    const auto wordIn = [&](const Names& names) {
        const auto word = std::ranges::find(names, static_cast<Integer>(value), &Names::value_type::second);
        return word == names.end() ? std::string() : word->first;
    };
    if (name == "Flag") return wordIn(kStepNames);
    if (name == "MoveNo" && value < kMovePatterns) return now_.built->patternNames[static_cast<std::size_t>(value)];
    if (name != "No") return {};
    if (value < 0 || value >= kEnemyKinds) return wordIn(kCommandNames);
    return now_.built->kindNames[static_cast<std::size_t>(value)];
}

std::string Workshop::Build(const std::map<std::string, std::string>& sources, BuiltState& state) const {
    const auto read = [&](const std::string& name) {
        const auto source = sources.find(name);
        if (source == sources.end()) return ReadWholeFile(folder_ + "/" + name);
        return FileBytes{FileError::none, {source->second.begin(), source->second.end()}, {}};
    };
    state.built = std::make_unique<BuiltTables>();
    std::string fault = BuildTables(read, *state.built);
    if (!fault.empty()) return fault;
    state.sheets = SheetsOf(state.built->tables);
    for (std::size_t i = 0; i < wanted_.size(); ++i) {
        state.differences.push_back(DifferencesOf(state.sheets[i], wanted_[i]));
        state.cost += CostOf(state.differences.back());
    }
    return {};
}

std::string Workshop::Open(const Tables& wanted, const std::string& folder) {
    folder_ = folder;
    tables_ = std::make_unique<Tables>(wanted);
    wanted_ = SheetsOf(wanted);
    std::string fault = CompleteFileSet(folder);
    if (!fault.empty()) return fault;
    for (const std::string& name : FilesIn(folder, ".lua")) {
        const FileBytes file = ReadWholeFile(folder + "/" + name);
        if (file.error == FileError::none) sources_[name] = {file.bytes.begin(), file.bytes.end()};
    }
    return Build(sources_, now_);
}

bool Workshop::SpoilsNothing(const BuiltState& state) const {
    for (std::size_t sheet = 0; sheet < wanted_.size(); ++sheet) {
        std::map<int, unsigned> wrong;
        int gone = 0;
        for (const Difference& d : now_.differences[sheet]) {
            if (d.wanted < 0) ++gone;
            if (d.wanted >= 0) wrong[d.wanted] = WrongFields(d, now_.sheets[sheet], wanted_[sheet]);
        }
        for (const Difference& d : state.differences[sheet]) {
            if (d.wanted < 0 && --gone < 0) return false;
            if (d.wanted >= 0 && WrongFields(d, state.sheets[sheet], wanted_[sheet]) & ~wrong[d.wanted]) return false;
        }
    }
    return true;
}

BuiltState Workshop::After(const Edit& edit) const {
    auto sources = sources_;
    sources[edit.file] = Applied(sources[edit.file], edit);
    BuiltState state;
    if (!Build(sources, state).empty()) state.sheets.clear();
    return state;
}

std::optional<BuiltState> Workshop::Try(const Edit& edit) const {
    BuiltState state = After(edit);
    if (state.sheets.empty() || !SpoilsNothing(state)) return {};
    return state;
}

std::vector<Row> Workshop::Probe(const Edit& edit, std::size_t sheet) const {
    const BuiltState state = After(edit);
    return state.sheets.empty() ? std::vector<Row>() : state.sheets[sheet].rows;
}

void Workshop::Make(const Edit& edit, BuiltState state) {
    sources_[edit.file] = Applied(sources_[edit.file], edit);
    now_ = std::move(state);
}
