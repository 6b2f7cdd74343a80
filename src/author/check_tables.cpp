#include "author/check_tables.h"

#include <array>
#include <cmath>
#include <iterator>
#include <span>

#include "author/check_stage.h"
#include "author/fields.h"
#include "author/pattern_run.h"

namespace {

struct Sheet {
    int width;
    int height;
};
constexpr Sheet kEnemySheet = {672, 512};
constexpr Sheet kBossSheets[] = {
    {210, 300}, {160, 320}, {600, 400}};  // of the bosses; kind 40 has none of its own: it is drawn from the one in use
static_assert(kFirstBoss + std::size(kBossSheets) == kLastDrawnKind);

bool IsBoss(int kind) {
    return kind >= kFirstBoss && kind <= kLastDrawnKind;
}
bool IsGiven(const EnemyDataType& kind) {
    return kind != EnemyDataType{};
}

std::span<const Sheet> SheetsOf(int kind) {
    const std::span bosses(kBossSheets);
    if (kind < kFirstBoss) return std::span(&kEnemySheet, 1);
    return kind == kLastDrawnKind ? bosses : bosses.subspan(static_cast<std::size_t>(kind - kFirstBoss), 1);
}

constexpr const char* kTooManyDigits = "more than the seven digits that the editors keep";

// The records whose Singles an editor would change by showing and storing them.
template <std::size_t size, typename Record>
std::bitset<size> Unshown(const Record (&records)[size], Single Record::*x, Single Record::*y) {
    const auto unshown = [](Single value) { return std::isfinite(value) && AsShown(value) != value; };
    std::bitset<size> found;
    for (std::size_t i = 0; i < size; ++i) found[i] = unshown(records[i].*x) || unshown(records[i].*y);
    return found;
}

class Checker {
  public:
    explicit Checker(const Tables& tables) : tables_(tables) {
        for (std::size_t p = 0; p < kMovePatterns; ++p) runs_[p] = RunPattern(tables.EneMove[p]);
    }

    std::vector<std::string> Check();

  private:
    void CheckKind(int number);
    void CheckPicture(const std::string& where, int number);
    void CheckPattern(int number);
    void CheckPatternEnd(const std::string& where, int number);
    void CheckLastBoss(const Play& play, int entry);
    void CheckStages();
    void Find(const std::string& where, const std::string& reason) { findings_.push_back(where + ": " + reason); }

    const Tables& tables_;
    std::array<PatternRun, kMovePatterns> runs_;
    std::bitset<kMovePatterns> inUse_;
    std::vector<std::string> findings_;
};

bool Fits(const EnemyDataType& kind, int frames, const Sheet& sheet) {
    return kind.SX >= 0 && kind.SY >= 0 && kind.Width > 0 && kind.Height > 0 &&
           kind.SX + frames * kind.Width <= sheet.width && kind.SY + 2 * kind.Height <= sheet.height;
}

void Checker::CheckPicture(const std::string& where, int number) {
    if (number > kLastDrawnKind) return Find(where, "has no picture: kinds above 40 are never drawn");
    const EnemyDataType& kind = tables_.EnemyData[number];
    const int frames = runs_[kind.MoveNo].highestFrame + 1;
    for (const Sheet& sheet : SheetsOf(number)) {
        if (Fits(kind, frames, sheet)) return;
    }
    const Sheet& sheet = SheetsOf(number).front();
    Find(where, "has no picture: frames 0.." + std::to_string(frames - 1) + " and their masks lie outside the " +
                    std::to_string(sheet.width) + " x " + std::to_string(sheet.height) + " sheet");
}

void Checker::CheckKind(int number) {
    const EnemyDataType& kind = tables_.EnemyData[number];
    if (!IsGiven(kind)) return;
    const std::string where = std::string(kEnemyTable.file) + ": kind " + std::to_string(number);
    if (kind.MoveNo >= kMovePatterns) {
        return Find(where, "there is no pattern " + std::to_string(kind.MoveNo));
    }
    inUse_.set(kind.MoveNo);
    CheckPicture(where, number);
    const PatternEnd end = runs_[kind.MoveNo].end;
    const std::string pattern = "pattern " + std::to_string(kind.MoveNo);
    if (end == PatternEnd::loops && !IsBoss(number)) Find(where, "stays for ever: " + pattern + " never ends");
    if (end == PatternEnd::ends && IsBoss(number)) Find(where, "a boss that leaves: " + pattern + " ends");
}

void Checker::CheckPatternEnd(const std::string& where, int number) {
    const PatternRun& run = runs_[static_cast<std::size_t>(number)];
    if (run.end != PatternEnd::leaves) return;
    const std::string step = where + ", step " + std::to_string(run.where);
    if (run.where == kMoveSteps - 1 && tables_.EneMove[number][run.where].Flag < 253) {
        Find(step, "the script runs past its last step");
    } else {
        Find(step, "leads outside the steps 0..255");
    }
}

void Checker::CheckPattern(int number) {
    std::bitset<kMoveSteps> unreached;
    const PatternRun& run = runs_[static_cast<std::size_t>(number)];
    for (std::size_t s = 0; s < kMoveSteps; ++s) {
        unreached[s] = !run.used[s] && tables_.EneMove[number][s] != EneMoveType{};
    }
    const bool written = unreached.any() || tables_.EneMove[number][0] != EneMoveType{};
    if (!written && !inUse_[static_cast<std::size_t>(number)]) return;
    const std::string where = std::string(kMoveTable.file) + ": pattern " + std::to_string(number);
    CheckPatternEnd(where, number);
    if (!run.startsWithMove) Find(where + ", step 0", "no move step: the enemy first shows the frame of another one");
    if (unreached.any()) Find(where + ", steps " + RangesOf(unreached), "never reached");
    const auto unshown = Unshown(tables_.EneMove[number], &EneMoveType::DX, &EneMoveType::DY);
    if (unshown.any()) Find(where + ", steps " + RangesOf(unshown), kTooManyDigits);
}

// The sheet that the last boss empties comes back with a new game only.
void Checker::CheckLastBoss(const Play& play, int entry) {
    const Play* next = NextStage(play);
    if (entry < 0 || !next) return;
    Find(BareName(play.file) + ": entry " + std::to_string(entry),
         "the last boss empties the enemy sheet: the enemies of " + BareName(next->file) + " stay invisible");
}

void Checker::CheckStages() {
    for (std::size_t i = 0; i < kStageTables; ++i) {
        const StageFindings stage = CheckStage(tables_.Stages[i], FollowsAnother(kPlays[i]));
        for (const std::string& line : stage.lines) Find(StageTable(i).file, line);
        for (int k = 0; k < kEnemyKinds; ++k) {
            const bool missing = stage.spawned[static_cast<std::size_t>(k)] && !IsGiven(tables_.EnemyData[k]);
            if (missing) Find(StageTable(i).file, "kind " + std::to_string(k) + " is sent in but not described");
        }
        CheckLastBoss(kPlays[i], stage.lastBoss);
        const auto unshown = Unshown(tables_.Stages[i], &StageDataType::X, &StageDataType::Y);
        if (unshown.any()) Find(StageTable(i).file + (": entries " + RangesOf(unshown)), kTooManyDigits);
    }
}

std::vector<std::string> Checker::Check() {
    for (int k = 0; k < kEnemyKinds; ++k) CheckKind(k);
    for (int p = 0; p < kMovePatterns; ++p) CheckPattern(p);
    CheckStages();
    return findings_;
}

}  // namespace

std::vector<std::string> CheckTables(const Tables& tables) {
    return Checker(tables).Check();
}
