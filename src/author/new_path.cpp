#include "author/new_path.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "combat/enemy_move.h"
#include "state/field_size.h"

namespace {

bool IsSentIn(const Tables& tables, int kind) {
    return std::ranges::any_of(tables.Stages, [kind](const auto& table) {
        return std::ranges::any_of(table, [kind](const StageDataType& e) {
            return e.No == kind && e != StageDataType{};  // the unused tail of a table is kind 0
        });
    });
}

int FreeKind(const Tables& tables) {
    for (int k = 0; k <= kLastSheetKind; ++k) {
        if (tables.EnemyData[k] == EnemyDataType{} && !IsSentIn(tables, k)) return k;
    }
    return -1;
}

int FreePattern(const Tables& tables) {
    for (int p = 0; p < kMovePatterns; ++p) {
        const bool empty =
            std::ranges::all_of(tables.EneMove[p], [](const auto& step) { return step == EneMoveType{}; });
        const bool flown = std::ranges::any_of(
            tables.EnemyData, [p](const EnemyDataType& k) { return k != EnemyDataType{} && k.MoveNo == p; });
        if (empty && !flown) return p;
    }
    return -1;
}

float Distance(DrawnPoint a, DrawnPoint b) {
    return std::hypot(b.x - a.x, b.y - a.y);
}

float LengthOf(const std::vector<DrawnPoint>& line) {
    float length = 0;
    for (std::size_t i = 1; i < line.size(); ++i) length += Distance(line[i - 1], line[i]);
    return length;
}

// Points on the line, `pace` pixels of way apart; the first is the line's own.
std::vector<DrawnPoint> Paced(const std::vector<DrawnPoint>& line, float pace) {
    std::vector<DrawnPoint> points = {line.front()};
    float rest = pace;
    for (std::size_t i = 1; i < line.size(); ++i) {
        DrawnPoint at = line[i - 1];
        float left = Distance(at, line[i]);
        while (left >= rest) {
            const float part = rest / left;
            at = {at.x + part * (line[i].x - at.x), at.y + part * (line[i].y - at.y)};
            points.push_back(at);
            rest = pace;
            left = Distance(at, line[i]);
        }
        rest -= Distance(at, line[i]);
    }
    return points;
}

bool IsOutside(DrawnPoint at, const EnemyDataType& kind) {
    const float w = static_cast<float>(kind.Width) / 2, h = static_cast<float>(kind.Height) / 2;
    return at.x < -w || at.y < -h || at.x > kFieldWidth + w || at.y > kFieldHeight + h;
}

// Straight on, with the mean of the last few steps, while there are steps.
void GoOut(std::vector<DrawnPoint>& points, const EnemyDataType& kind) {
    constexpr std::size_t kLooksBack = 4;
    const std::size_t back = std::min(kLooksBack, points.size() - 1);
    const DrawnPoint last = points.back(), before = points[points.size() - 1 - back];
    const auto steps = static_cast<float>(back);
    const DrawnPoint way{(last.x - before.x) / steps, (last.y - before.y) / steps};
    while (!IsOutside(points.back(), kind) && points.size() < kMoveSteps) {
        points.push_back({points.back().x + way.x, points.back().y + way.y});
    }
}

// Whole tenths, counted from the start, so that no rounding adds up.
Single Tenths(float from, float to) {
    const auto tenths = [](float value) { return std::lround(value * 10); };
    return static_cast<Single>(static_cast<double>(tenths(to) - tenths(from)) / 10);
}

// The animation as the pattern's moves show it; it goes round on a longer way.
std::vector<Byte> AnimationOf(const EneMoveType (&pattern)[kMoveSteps]) {
    std::vector<Byte> frames;
    for (const EneMoveType& step : pattern) {
        if (step.Flag == 0 && step != EneMoveType{}) frames.push_back(step.Anime);
    }
    if (frames.empty()) frames.push_back(0);
    return frames;
}

}  // namespace

std::string NewKind(Tables& tables, int like, int& made) {
    if (like < 0 || like >= kEnemyKinds) return "there is no kind " + std::to_string(like);
    const int kind = FreeKind(tables), pattern = FreePattern(tables);
    if (kind < 0) return "all kinds from 0 to 36 are in use";
    if (pattern < 0) return "all movement patterns are in use";
    tables.EnemyData[kind] = tables.EnemyData[like];
    const int old = tables.EnemyData[like].MoveNo;
    if (old < kMovePatterns) std::ranges::copy(tables.EneMove[old], std::begin(tables.EneMove[pattern]));
    tables.EnemyData[kind].MoveNo = static_cast<Byte>(pattern);
    made = kind;
    return {};
}

std::string FlyAlong(Tables& tables, int kind, const std::vector<DrawnPoint>& line, Single speed) {
    constexpr float kSlowest = 0.1F;
    const EnemyDataType& record = tables.EnemyData[kind];
    if (record.MoveNo >= kMovePatterns) return "the kind has no movement pattern";
    const float length = line.empty() ? 0 : LengthOf(line);
    const float pace = std::max({speed, kSlowest, length / (kMoveSteps - 2)});
    auto points = length < pace ? std::vector<DrawnPoint>{} : Paced(line, pace);
    if (points.size() < 2) return "the way is shorter than one step";
    GoOut(points, record);
    EneMoveType(&pattern)[kMoveSteps] = tables.EneMove[record.MoveNo];
    const std::vector<Byte> animation = AnimationOf(pattern);
    EneMoveType next[kMoveSteps]{};
    for (std::size_t i = 1; i < points.size(); ++i) {
        const DrawnPoint from = points[i - 1], to = points[i];
        next[i - 1] = {Tenths(from.x, to.x), Tenths(from.y, to.y), animation[(i - 1) % animation.size()], 0};
    }
    next[points.size() - 1].Flag = kEndOfEnemy;
    std::ranges::copy(next, std::begin(pattern));
    return {};
}
