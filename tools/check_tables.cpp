#include "check_tables.h"

#include <array>
#include <span>

#include "check_stage.h"
#include "pattern_run.h"

namespace {

struct Sheet {
    int width;
    int height;
};
constexpr Sheet kEnemySheet = {672, 512};
constexpr Sheet kBossSheets[] = {{210, 300}, {160, 320}, {600, 400}};  // of kinds 37, 38, 39
constexpr int kFirstBoss = 37, kLastBoss = 40;  // kind 40 has no sheet of its own: it is drawn from the one in use

bool IsBoss(int kind) {
    return kind >= kFirstBoss && kind <= kLastBoss;
}
bool IsGiven(const EnemyDataType& kind) {
    return kind != EnemyDataType{};
}

std::span<const Sheet> SheetsOf(int kind) {
    const std::span bosses(kBossSheets);
    if (kind < kFirstBoss) return std::span(&kEnemySheet, 1);
    return kind == kLastBoss ? bosses : bosses.subspan(static_cast<std::size_t>(kind - kFirstBoss), 1);
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
    if (number > kLastBoss) return Find(where, "has no picture: kinds above 40 are never drawn");
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
}

void Checker::CheckStages() {
    for (std::size_t i = 0; i < kStageTables; ++i) {
        const bool follows = i == 1 || i == 2;
        const StageFindings stage = CheckStage(tables_.Stages[i], follows);
        for (const std::string& line : stage.lines) Find(kStageTableNames[i].file, line);
        for (int k = 0; k < kEnemyKinds; ++k) {
            const bool missing = stage.spawned[static_cast<std::size_t>(k)] && !IsGiven(tables_.EnemyData[k]);
            if (missing) Find(kStageTableNames[i].file, "kind " + std::to_string(k) + " is sent in but not described");
        }
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
