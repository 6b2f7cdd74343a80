#include "author/table_drawings.h"

#include <algorithm>
#include <array>

#include "author/check_stage.h"
#include "author/field_drawing.h"
#include "author/names.h"
#include "author/pattern_run.h"
#include "combat/enemy_hits.h"
#include "state/field_size.h"
#include "toolkit/numbers.h"

namespace {

constexpr Color kGround = RGB(16, 19, 31), kRoom = RGB(5, 7, 16), kGrid = RGB(70, 84, 128), kPale = RGB(150, 165, 205),
                kBright = RGB(225, 240, 255), kOrange = RGB(255, 170, 64), kYellow = RGB(255, 240, 120);
constexpr int kLongestWay = 800;  // frames; bosses stay for ever

bool IsEnemy(const StageDataType& entry) {
    return entry.No >= 0 && entry.No < kEnemyKinds;
}

// Where a kind comes first.
StageDataType FirstEntryOf(const Tables& tables, int kind) {
    for (const auto& stage : tables.Stages) {
        for (const StageDataType& entry : stage) {
            if (entry.No == kind && entry != StageDataType{}) return entry;
        }
    }
    return {.X = kMiddleOfRandomX, .Y = -32, .No = static_cast<Integer>(kind), .Counter = 0, .Power = 0};
}

void Say(Drawing& drawing, DrawnPoint place, const std::string& text, Color color, bool small = true) {
    drawing.shapes.emplace_back(DrawnText{place, text, {color}, small});
}

void Fill(Drawing& drawing, DrawnPoint corner, float width, float height, Color color, float strength = 1) {
    drawing.shapes.emplace_back(DrawnBox{corner, width, height, {color, strength}});
}

void Line(Drawing& drawing, DrawnPoint from, DrawnPoint to, Color color, bool dashed = false) {
    drawing.shapes.emplace_back(DrawnLine{{from, to}, {color}, 1, dashed});
}

// One row of the time line.
constexpr int kRowFrames = 768;     // 30 s
constexpr float kPerFrame = 1.75F;  // pixels
constexpr float kLane = 9, kLanes = 40, kLeft = 12, kTop = 22, kBetween = 14;
constexpr float kOutside = 34;  // pixels beside the field that are shown too
constexpr float kFieldTop = kTop + kOutside, kBarsTop = kFieldTop + kFieldWidth + kOutside,
                kRow = kBarsTop + kLanes * kLane + kBetween;

class TimeLine {
  public:
    TimeLine(const Tables& tables, int table)
        : entries_(tables.Stages[table]), times_(CheckStage(tables.Stages[table], FollowsAnother(kPlays[table]))) {}

    Drawing Draw();

  private:
    int LastFrame() const { return *std::ranges::max_element(times_.frames); }
    static DrawnPoint At(int frame, float y) {
        const int row = frame / kRowFrames, inRow = frame % kRowFrames;
        return {kLeft + static_cast<float>(inRow) * kPerFrame, static_cast<float>(row) * kRow + y};
    }
    void Ground(int rows);
    void Command(int entry);
    void Enemy(int entry);
    void Bar(int from, int to, float y, Color color);
    float LaneFor(int from, int to);

    const StageDataType (&entries_)[kStageEntries];
    StageFindings times_;
    std::array<int, static_cast<std::size_t>(kLanes)> busy_{};  // until which frame each lane is taken
    Drawing drawing_{};
};

void TimeLine::Ground(int rows) {
    constexpr int kFiveSeconds = 128;
    drawing_.width = 2 * kLeft + kRowFrames * kPerFrame;
    drawing_.height = static_cast<float>(rows) * kRow;
    Fill(drawing_, {0, 0}, drawing_.width, drawing_.height, kGround);
    for (int frame = 0; frame < rows * kRowFrames; frame += kFiveSeconds) {
        if (frame % kRowFrames == 0) {
            Fill(drawing_, At(frame, kFieldTop), kRowFrames * kPerFrame, kFieldWidth, kRoom);
            Fill(drawing_, At(frame, kBarsTop), kRowFrames * kPerFrame, kLanes * kLane, kRoom);
        }
        Line(drawing_, At(frame, kTop), At(frame, kBarsTop + kLanes * kLane), kGrid);
        Say(drawing_, {At(frame, 0).x + 3, At(frame, 9).y},
            std::to_string(frame / kFiveSeconds * 5) + " s, frame " + std::to_string(frame), kPale);
    }
}

void TimeLine::Command(int entry) {
    const int frame = times_.frames[static_cast<std::size_t>(entry)];
    const std::string name = NameOf(kCommandNames, entries_[entry].No);
    if (name.empty() || name == "pass") return;
    Line(drawing_, At(frame, kTop), At(frame, kBarsTop + kLanes * kLane), kYellow, true);
    constexpr int kHeights = 5;  // one below the other, so that those at one time can be read
    const float y = kFieldTop + 8 + 12 * static_cast<float>(entry % kHeights);
    Say(drawing_, {At(frame, 0).x + 3, At(frame, y).y}, std::to_string(entry) + " " + name, kYellow);
}

// The uppermost lane that is free; the last one when none is.
float TimeLine::LaneFor(int from, int to) {
    constexpr int kGap = 4;  // frames
    auto lane = std::ranges::find_if(busy_, [&](int until) { return until + kGap <= from; });
    if (lane == busy_.end()) --lane;
    *lane = to;
    return kBarsTop + static_cast<float>(lane - busy_.begin()) * kLane;
}

void TimeLine::Bar(int from, int to, float y, Color color) {
    while (from < to) {
        const int end = std::min(to, (from / kRowFrames + 1) * kRowFrames);
        Fill(drawing_, At(from, y + 1), static_cast<float>(end - from) * kPerFrame, kLane - 2, color, 0.8F);
        from = end;
    }
}

void TimeLine::Enemy(int entry) {
    constexpr Color kColors[] = {RGB(70, 120, 190), RGB(60, 140, 120), RGB(130, 100, 180), RGB(160, 90, 110),
                                 RGB(110, 130, 70), RGB(150, 110, 60), RGB(80, 105, 130)};
    const StageDataType& enemy = entries_[entry];
    const int from = times_.frames[static_cast<std::size_t>(entry)];
    const EnemyPath path = PathOf(enemy.No, enemy.X, enemy.Y, kLongestWay);
    const int length = path.leaves >= 0 ? path.leaves : std::max(LastFrame() - from, 1);
    const int to = std::min(from + std::max(length, 1), LastFrame() + kRowFrames);
    const EnemyDataType& kind = game.EnemyData[enemy.No];
    drawing_.shapes.emplace_back(
        DrawnSprite{At(from, kFieldTop + (enemy.X == kRandomX ? kMiddleOfRandomX : enemy.X)), kind, enemy.No, 0});
    const float lane = LaneFor(from, to);
    Bar(from, to, lane, kColors[static_cast<std::size_t>(enemy.No) % std::size(kColors)]);
    for (std::size_t i = 0; i < path.points.size() && static_cast<int>(i) < length; ++i) {
        if (path.points[i].Fire == 0) continue;
        drawing_.shapes.emplace_back(DrawnDot{At(from + static_cast<int>(i), lane + kLane / 2), 1.5F, {kOrange}});
    }
    Say(drawing_, {At(from, 0).x + 1, At(from, lane + kLane / 2).y}, std::to_string(enemy.No), kBright);
}

Drawing TimeLine::Draw() {
    Ground(LastFrame() / kRowFrames + 1);
    for (int entry = 0; entry < kStageEntries; ++entry) {
        if (times_.frames[static_cast<std::size_t>(entry)] == 0) continue;
        if (IsEnemy(entries_[entry])) {
            Enemy(entry);
        } else {
            Command(entry);
        }
    }
    return std::move(drawing_);
}

// What a kind is, in words.
std::array<std::string, 3> LinesAbout(int number, const EnemyDataType& kind, int frames) {
    const auto text = [](int value) { return std::to_string(value); };
    return {"kind " + text(number) + ": " + text(kind.Width) + " x " + text(kind.Height) + " at (" + text(kind.SX) +
                ", " + text(kind.SY) + "), " + text(frames) + (frames == 1 ? " frame" : " frames"),
            "pattern " + text(kind.MoveNo) + ", score " + text(kind.Score),
            "dashed: where the corner of a shot hits; square: explosion " + text(kind.BomType)};
}

}  // namespace

Drawing DrawPattern(const Tables& tables, int pattern) {
    const auto* flies = std::ranges::find(tables.EnemyData, static_cast<Byte>(pattern), &EnemyDataType::MoveNo);
    const bool flown = flies != std::end(tables.EnemyData) && *flies != EnemyDataType{};
    const int number = flown ? static_cast<int>(flies - tables.EnemyData) : kEnemyKinds - 1;
    EnemyDataType& kind = game.EnemyData[number];
    const EnemyDataType kept = kind;
    if (!flown) kind = {.Width = 32, .Height = 32, .MoveNo = static_cast<Byte>(pattern)};
    FieldScene scene{.entry = FirstEntryOf(tables, flown ? number : -1), .kind = kind, .path = {}};
    scene.entry.No = static_cast<Integer>(number);
    scene.path = PathOf(number, scene.entry.X, scene.entry.Y, kLongestWay);
    kind = kept;
    return DrawField(scene);
}

Drawing DrawKind(const Tables& tables, int number) {
    constexpr float kEdge = 40, kText = 14;
    const EnemyDataType& kind = tables.EnemyData[number];
    const int frames = kind.MoveNo < kMovePatterns ? RunPattern(tables.EneMove[kind.MoveNo]).highestFrame + 1 : 1;
    const auto lines = LinesAbout(number, kind, frames);
    const float width = kind.Width, height = kind.Height, top = kEdge + kText * 3;
    const auto bomb = static_cast<float>(32 << std::min<int>(kind.BomType, 2));
    Drawing drawing{
        {0, 0}, std::max(2 * kEdge + (width + 8) * static_cast<float>(frames), 420.0F), top + height + kEdge, {}};
    drawing.height = std::max(drawing.height, top + bomb + kEdge);
    Fill(drawing, {0, 0}, drawing.width, drawing.height, kGround);
    Fill(drawing, {6, top - kEdge + 8}, drawing.width - 12, drawing.height - top + kEdge - 14, kRoom);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        Say(drawing, {10, kText * (static_cast<float>(i) + 0.8F)}, lines[i], i == 0 ? kBright : kPale, i > 0);
    }
    for (int frame = 0; frame < frames; ++frame) {
        const float left = kEdge + (width + 8) * static_cast<float>(frame);
        drawing.shapes.emplace_back(DrawnSprite{{left, top}, kind, number, frame});
    }
    drawing.shapes.emplace_back(DrawnBox{{kEdge - kReachLeft, top - kReachTop},
                                         width + kReachLeft + kReachRight,
                                         height + kReachTop + kReachBottom,
                                         {kBlack, 0},
                                         {kOrange},
                                         true});
    drawing.shapes.emplace_back(DrawnBox{{kEdge, top}, bomb, bomb, {kBlack, 0}, {kGrid}, false});
    return drawing;
}

Drawing DrawStage(const Tables& tables, int table) {
    return TimeLine(tables, table).Draw();
}
