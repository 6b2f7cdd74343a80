#include "author/bench.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

#include "author/journal.h"
#include "stage/data_files.h"
#include "stage/stage_script.h"
#include "toolkit/folder.h"

namespace {

// One file of the set: its name and its bytes for given tables.
struct TableFile {
    std::string name;
    std::vector<std::uint8_t> (*encode)(const Tables& tables, int table);
    int table = 0;
};

std::vector<TableFile> AllFiles() {
    std::vector<TableFile> files = {
        {kEnemyTable.file, [](const Tables& t, int) { return EncodeEnemyData(t.EnemyData); }},
        {kMoveTable.file, [](const Tables& t, int) { return EncodeEneMove(t.EneMove); }},
    };
    for (int i = 0; i < kStageTables; ++i) {
        files.push_back({StageTable(static_cast<std::size_t>(i)).file,
                         [](const Tables& t, int table) { return EncodeStageData(t.Stages[table]); }, i});
    }
    return files;
}

std::vector<std::string> FilesThatDiffer(const Tables& a, const Tables& b) {
    std::vector<std::string> names;
    for (const TableFile& file : AllFiles()) {
        if (file.encode(a, file.table) != file.encode(b, file.table)) names.push_back(file.name);
    }
    return names;
}

std::string WriteOne(const TableFile& file, const Tables& tables) {
    const FileBytes old = ReadFolderFile(file.name);
    if (old.error == FileError::none) {
        const std::string reason = WriteFolderFile(file.name + ".bak", old.bytes);
        if (!reason.empty()) return file.name + ".bak: " + reason;
    }
    const std::string reason = WriteFolderFile(file.name, file.encode(tables, file.table));
    return reason.empty() ? "" : file.name + ": " + reason;
}

// Through the folder's lookup, so that the player's own files come first.
template <typename Decode>
std::string ReadOne(const std::string& name, std::size_t size, Decode decode) {
    const FileBytes file = ReadFolderFile(name);
    if (file.error != FileError::none) return name + ": " + file.reason;
    if (file.bytes.size() < size) return name + ": the file is too short";
    decode(file.bytes);
    return {};
}

std::string ReadAll(Tables& tables) {
    std::string problem = ReadOne(kEnemyTable.file, kEnemyDataFileBytes,
                                  [&](const auto& bytes) { DecodeEnemyData(bytes, tables.EnemyData); });
    if (problem.empty()) {
        problem = ReadOne(kMoveTable.file, kEneMoveFileBytes,
                          [&](const auto& bytes) { DecodeEneMove(bytes, tables.EneMove); });
    }
    for (std::size_t t = 0; t < kStageTables && problem.empty(); ++t) {
        problem = ReadOne(StageTable(t).file, kStageFileBytes,
                          [&](const auto& bytes) { DecodeStageData(bytes, tables.Stages[t]); });
    }
    return problem;
}

bool OnlyCounted(const StageDataType& before, const StageDataType& after) {
    StageDataType counted = before;
    counted.Y = after.Y;
    return before.No == kRepeat && counted == after;
}

template <typename Record, std::size_t size>
void Copy(const Record (&from)[size], Record (&to)[size]) {
    std::copy(std::begin(from), std::end(from), std::begin(to));
}

}  // namespace

std::string Bench::Open() {
    auto tables = std::make_unique<Tables>();
    std::string problem = ReadAll(*tables);
    if (!problem.empty()) return problem;
    working_ = saved_ = *tables;
    history_.clear();
    done_ = 0;
    return {};
}

void Bench::PutIntoGame(const TableChange& change, Direction direction) {
    Apply(change, direction, working_);
    const bool forward = direction == Direction::forward;
    if (const auto* entry = std::get_if<RecordChange<StageDataType>>(&change)) {
        if (entry->table != loaded_) return;
        game.StageData[entry->index] = seen_[entry->index] = forward ? entry->after : entry->before;
    } else if (const auto* kind = std::get_if<RecordChange<EnemyDataType>>(&change)) {
        game.EnemyData[kind->index] = forward ? kind->after : kind->before;
    } else if (const auto* step = std::get_if<RecordChange<EneMoveType>>(&change)) {
        game.EneMove[step->table][step->index] = forward ? step->after : step->before;
    }
}

void Bench::Step(const BenchAction& action, Direction direction) {
    for (const TableChange& change : action.changes) PutIntoGame(change, direction);
    ++changes_;
}

void Bench::Record(BenchAction action) {
    history_.resize(done_);
    history_.push_back(std::move(action));
    ++done_;
    Step(history_.back(), Direction::forward);
}

void Bench::Act(const Tables& next, std::string label) {
    BenchAction action{std::move(label), Differences(working_, next)};
    if (action.changes.empty()) return;
    if (action.label.empty()) {
        action.label = Describe(action.changes.front());
        if (action.changes.size() > 1) action.label += " and " + std::to_string(action.changes.size() - 1) + " more";
    }
    Record(std::move(action));
}

void Bench::GoBack() {
    if (done_ > 0) Step(history_[--done_], Direction::back);
}

void Bench::GoForward() {
    if (done_ < history_.size()) Step(history_[done_++], Direction::forward);
}

void Bench::TableLoaded(int table) {
    loaded_ = table;
    Copy(working_.EnemyData, game.EnemyData);
    for (int p = 0; p < kMovePatterns; ++p) Copy(working_.EneMove[p], game.EneMove[p]);
    if (table < 0) return;
    Copy(working_.Stages[table], game.StageData);
    Copy(game.StageData, seen_);
}

void Bench::Adopt(int table) {
    loaded_ = table;
    const auto isEmpty = [](const auto& records) {
        return std::ranges::all_of(records, [](const auto& r) { return r == std::decay_t<decltype(r)>{}; });
    };
    if (isEmpty(game.EnemyData)) Copy(working_.EnemyData, game.EnemyData);
    if (std::ranges::all_of(game.EneMove, isEmpty)) {
        for (int p = 0; p < kMovePatterns; ++p) Copy(working_.EneMove[p], game.EneMove[p]);
    }
    if (table >= 0) Copy(working_.Stages[table], seen_);
}

// An editor window may have read the file of another appearance table over the one in memory.
void Bench::FindTableInGame() {
    for (int t = 0; t < kStageTables; ++t) {
        if (t == loaded_ || !std::ranges::equal(game.StageData, saved_.Stages[t])) continue;
        loaded_ = t;
        Copy(working_.Stages[t], seen_);
        return;
    }
}

// The bench's tables with what `game` holds of them.
Tables Bench::InGame() const {
    Tables tables = working_;
    Copy(game.EnemyData, tables.EnemyData);
    for (int p = 0; p < kMovePatterns; ++p) Copy(game.EneMove[p], tables.EneMove[p]);
    if (loaded_ < 0) return tables;
    for (int i = 0; i < kStageEntries; ++i) {
        const StageDataType& now = game.StageData[i];
        if (now != seen_[i] && !OnlyCounted(seen_[i], now)) tables.Stages[loaded_][i] = now;
    }
    return tables;
}

void Bench::Observe() {
    const bool changed = !std::ranges::equal(game.StageData, seen_);
    if (changed) FindTableInGame();
    Act(InGame());
    if (changed) Copy(game.StageData, seen_);
}

std::vector<std::string> Bench::Unsaved() const {
    return FilesThatDiffer(working_, saved_);
}

std::string Bench::Save() {
    const std::vector<std::string> unsaved = Unsaved();
    for (const TableFile& file : AllFiles()) {
        if (std::ranges::find(unsaved, file.name) == unsaved.end()) continue;
        std::string problem = WriteOne(file, working_);
        if (!problem.empty()) return problem;
    }
    saved_ = working_;
    KeepJournal();
    return {};
}

std::vector<std::string> Bench::ChangedOnDisk() {
    auto disk = std::make_unique<Tables>();
    if (!ReadAll(*disk).empty()) return {};
    std::vector<std::string> names;
    for (const std::string& name : FilesThatDiffer(saved_, *disk)) {
        const auto mine = FilesThatDiffer(working_, *disk);
        if (std::ranges::find(mine, name) != mine.end()) names.push_back(name);
    }
    if (names.empty()) saved_ = *disk;
    return names;
}

void Bench::TakeFromDisk() {
    auto disk = std::make_unique<Tables>();
    if (!ReadAll(*disk).empty()) return;
    auto next = std::make_unique<Tables>(working_);
    for (const TableChange& change : Differences(saved_, *disk)) Apply(change, Direction::forward, *next);
    saved_ = *disk;
    Act(*next, "taken from the disk");
}

void Bench::LeaveOnDisk() {
    auto disk = std::make_unique<Tables>();
    if (ReadAll(*disk).empty()) saved_ = *disk;
}

void Bench::KeepJournal() const {
    WriteJournal(Differences(saved_, working_));
}
