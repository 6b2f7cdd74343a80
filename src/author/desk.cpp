#include "author/desk.h"

#include <algorithm>
#include <charconv>

#include "author/check_tables.h"
#include "author/fields.h"
#include "author/journal.h"
#include "author/names.h"
#include "editors/editor1.h"
#include "editors/enemy_data_edit.h"
#include "editors/enemy_move_edit.h"
#include "stage/plays.h"
#include "toolkit/numbers.h"

namespace {

constexpr int kPathFrames = 1500;  // how long an enemy is followed: a minute

// The numbers of "12" or "3..5, 8".
std::vector<int> NumbersIn(std::string_view text) {
    std::vector<int> numbers;
    while (!text.empty()) {
        int first = 0;
        const char* end = text.data() + text.size();
        const char* behind = std::from_chars(text.data(), end, first).ptr;
        int last = first;
        if (end - behind > 2 && behind[0] == '.') behind = std::from_chars(behind + 2, end, last).ptr;
        for (int n = first; n <= last; ++n) numbers.push_back(n);
        text.remove_prefix(static_cast<std::size_t>(behind - text.data()));
        text.remove_prefix(std::min(text.size(), text.find_first_of("0123456789")));
    }
    return numbers;
}

// Of a finding "STAGE1.DAT: entries 3..5, 8: reason": whether it is about entries of that file, and which.
std::vector<int> EntriesOf(std::string_view finding, const std::string& file, std::string& reason) {
    if (!finding.starts_with(file + ": entr")) return {};
    finding.remove_prefix(file.size() + 2);
    const auto colon = finding.find(": "), blank = finding.find(' ');
    if (colon == std::string_view::npos || blank > colon) return {};
    reason = finding.substr(colon + 2);
    return NumbersIn(finding.substr(blank + 1, colon - blank - 1));
}

}  // namespace

Desk::Desk() {
    AddFields();
    AddButtons();
}

std::string Desk::Open(int table) {
    std::string problem = bench_.Open();
    if (!problem.empty()) return problem;
    bench_.Adopt(table);
    bench_.Observe();
    LeftOver left = ReadJournal(bench_.Working());
    left_ = std::move(left.changes);
    message_ = left.problem;
    journaled_ = bench_.Changes();
    FollowEntry();
    return {};
}

void Desk::Observe() {
    bench_.Observe();
    Changed();
}

void Desk::LookAtFiles() {
    onDisk_ = bench_.ChangedOnDisk();
}

// The journal of last time stays until the author has said what is to become of it.
void Desk::Changed() {
    if (journaled_ == bench_.Changes() || !left_.empty()) return;
    bench_.KeepJournal();
    journaled_ = bench_.Changes();
}

DeskOffer Desk::Offer() const {
    if (!left_.empty()) {
        return {std::to_string(left_.size()) +
                    " changes of last time were not saved, the first: " + Describe(left_.front()),
                "Take them", "Forget them"};
    }
    if (onDisk_.empty()) return {};
    std::string names;
    for (const std::string& name : onDisk_) names += (names.empty() ? "" : ", ") + name;
    return {names + " changed on the disk", "Load", "Keep mine"};
}

void Desk::Answer(bool accepted) {
    if (!left_.empty()) {
        auto next = std::make_unique<Tables>(bench_.Working());
        for (const TableChange& change : left_) Apply(change, Direction::forward, *next);
        left_.clear();
        if (accepted) bench_.Act(*next, "what was not saved last time");
        bench_.KeepJournal();
    } else if (accepted) {
        bench_.TakeFromDisk();
    } else {
        bench_.LeaveOnDisk();
    }
    onDisk_.clear();
    message_.clear();
    Changed();
}

void Desk::ChooseTable(int table) {
    range_ = {table, 0, 0};
    Choose(0, 0);
}

void Desk::Choose(int first, int last) {
    const int row = range_.first;
    range_.first = std::clamp(first, 0, kStageEntries - 1);
    range_.last = std::clamp(last, range_.first, kStageEntries - 1);
    if (row != range_.first || known_ < 0 || knownTable_ != range_.table) FollowEntry();
}

// The kind, the step and the time that go with the entry: half of its way, so that it is seen flying.
void Desk::FollowEntry() {
    constexpr int kSoonest = 40, kLatest = 120;
    step_ = 0;
    if (!IsEnemy(range_.first)) {
        time_ = Stage().frames[static_cast<std::size_t>(range_.first)];
        return;
    }
    kind_ = Entry(range_.first).No;
    const int flies = PathOfEntry(range_.first).leaves;
    time_ = Stage().frames[static_cast<std::size_t>(range_.first)];
    time_ += flies < 0 ? kLatest : std::clamp(flies / 2, std::min(kSoonest, flies / 2), kLatest);
}

void Desk::ChooseKind(int kind) {
    kind_ = std::clamp(kind, 0, kEnemyKinds - 1);
    step_ = 0;
}

void Desk::ChooseTime(int time) {
    time_ = std::clamp(time, 0, LastTime());
}

int Desk::LastTime() {
    constexpr int kAfter = 300;  // frames in which the last ones are still about
    return std::ranges::max(Stage().frames) + kAfter;
}

bool Desk::IsEnemy(int row) const {
    const Integer no = Entry(row).No;
    return no >= 0 && no < kEnemyKinds;
}

int Desk::PatternOfKind() const {
    const Byte pattern = bench_.Working().EnemyData[kind_].MoveNo;
    return pattern < kMovePatterns ? pattern : -1;
}

const char* Desk::Title(DeskColumn column) {
    constexpr const char* kTitles[kDeskColumns] = {"No.", "Frame", "", "What", "X", "Y", "Counter", "Power"};
    return kTitles[static_cast<std::size_t>(column)];
}

int Desk::Rows() const {
    return std::min(EntriesInUse(bench_.Working(), range_.table) + 1, kStageEntries);
}

std::string Desk::Cell(int row, DeskColumn column) {
    using enum DeskColumn;
    const StageDataType& entry = Entry(row);
    const int comes = Stage().frames[static_cast<std::size_t>(row)];
    const bool behind = row == Rows() - 1 && entry == StageDataType{};
    if (behind) return column == number ? std::to_string(row) : column == name ? "(end)" : "";
    switch (column) {
        case number:
            return std::to_string(row);
        case frame:
            return comes > 0 ? std::to_string(comes) : "-";
        case name:
            if (entry.No < kFirstCommand) return "kind " + std::to_string(entry.No);
            return NameOf(kCommandNames, entry.No).empty() ? "pass (" + std::to_string(entry.No) + ")"
                                                           : NameOf(kCommandNames, entry.No);
        case x:
            return entry.X == kRandomX ? "random" : TextOf(entry.X);
        case y:
            return TextOf(entry.Y);
        case counter:
            return std::to_string(entry.Counter);
        case power:
            return std::to_string(entry.Power);
        default:
            return {};
    }
}

int Desk::KindIn(int row) const {
    const bool behind = row == Rows() - 1 && Entry(row) == StageDataType{};
    return IsEnemy(row) && !behind ? Entry(row).No : -1;
}

void Desk::Search(const std::string& text) {
    const int rows = Rows();
    for (int i = 1; i <= rows && !text.empty(); ++i) {
        const int row = (range_.first + i) % rows;
        for (int c = 0; c < kDeskColumns; ++c) {
            if (Cell(row, static_cast<DeskColumn>(c)).find(text) == std::string::npos) continue;
            message_.clear();
            return Choose(row, row);
        }
    }
    message_ = text.empty() ? "" : "\"" + text + "\" is nowhere in the list";
}

// Everything that is found out anew when the tables have changed.
const StageFindings& Desk::Stage() {
    if (known_ == bench_.Changes() && knownTable_ == range_.table) return stage_;
    known_ = bench_.Changes();
    knownTable_ = range_.table;
    paths_.clear();
    stage_ = CheckStage(bench_.Working().Stages[range_.table],
                        FollowsAnother(kPlays[static_cast<std::size_t>(range_.table)]));
    reasons_.clear();
    otherFinding_.clear();
    const std::string file = StageTable(static_cast<std::size_t>(range_.table)).file;
    for (const std::string& finding : CheckTables(bench_.Working())) {
        std::string reason;
        for (const int entry : EntriesOf(finding, file, reason)) {
            std::string& known = reasons_[entry];
            known += (known.empty() ? "" : "; ") + reason;
        }
        const bool aboutStage = finding.starts_with("STAGE") || finding.starts_with("Attack");
        if (otherFinding_.empty() && !aboutStage) otherFinding_ = finding;
    }
    return stage_;
}

const std::map<int, std::string>& Desk::Reasons() {
    static_cast<void>(Stage());
    return reasons_;
}

std::string Desk::Reason(int row) {
    const auto found = Reasons().find(row);
    return found == Reasons().end() ? "" : found->second;
}

std::string Desk::Finding() {
    const std::string reason = Reason(range_.first);
    if (!reason.empty()) return "entry " + std::to_string(range_.first) + ": " + reason;
    return otherFinding_;
}

const EnemyPath& Desk::PathOfEntry(int row) {
    static_cast<void>(Stage());
    const auto found = paths_.find(row);
    if (found != paths_.end()) return found->second;
    const StageDataType& entry = Entry(row);
    return paths_[row] = IsEnemy(row) ? PathOf(entry.No, entry.X, entry.Y, kPathFrames) : EnemyPath{};
}

std::string Desk::Do(const Change& change, const std::string& label) {
    if (!left_.empty()) return "first say above what is to become of last time's changes";
    auto next = std::make_unique<Tables>(bench_.Working());
    std::string problem = change(*next);
    if (!problem.empty()) return problem;
    bench_.Act(*next, label);
    Changed();
    return {};
}

void Desk::Store(const DeskField& field, const std::string& text) {
    if (text == field.text()) return;
    message_ = field.store(text);
}

void Desk::Press(const DeskButton& button) {
    message_ = button.press();
}

void Desk::GoTo(std::size_t done) {
    while (bench_.Done() > done) bench_.GoBack();
    while (bench_.Done() < done && bench_.Done() < bench_.History().size()) bench_.GoForward();
    Changed();
}

void Desk::PlaceEditors() const {
    editor1::openAt = bench_.Loaded() == range_.table ? range_.first : 0;
    enemy_data_edit::openAt = kind_;
    enemy_move_edit::openAtPattern = std::max(PatternOfKind(), 0);
    enemy_move_edit::openAtStep = step_;
}

TryOut Desk::Start() const {
    TryOut start = start_;
    start.table = range_.table;
    start.entry = range_.first;
    return start;
}
