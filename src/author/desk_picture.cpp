// The bench's picture of the field, and what the mouse does in it.
#include <algorithm>
#include <cmath>

#include "author/desk.h"
#include "author/fields.h"
#include "author/new_path.h"
#include "author/pattern_run.h"
#include "combat/enemy_move.h"
#include "toolkit/numbers.h"

namespace {

float Distance(DrawnPoint a, DrawnPoint b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

// A place or a step as the mouse gives it.
Single Fitted(float value, bool fine) {
    return fine ? AsShown(value) : std::round(value) + 0.0F;  // no negative zero
}

std::string Arrow(const char* name, Single before, Single after) {
    return std::string(name) + " " + TextOf(before) + (before == after ? "" : " → " + TextOf(after));
}

bool Covers(const PathPoint& at, const EnemyDataType& kind, DrawnPoint point) {
    return point.x >= at.X && point.y >= at.Y && point.x < at.X + static_cast<float>(kind.Width) &&
           point.y < at.Y + static_cast<float>(kind.Height);
}

}  // namespace

std::vector<OnionSkin> Desk::Others() {
    std::vector<OnionSkin> skins;
    for (int row = 0; row < Rows() - 1; ++row) {
        const int comes = Stage().frames[static_cast<std::size_t>(row)];
        if (row == range_.first || comes == 0 || comes > time_ || !IsEnemy(row)) continue;
        const auto& points = PathOfEntry(row).points;
        const auto age = static_cast<std::size_t>(time_ - comes);
        if (age < points.size()) skins.push_back({row, Entry(row).No, points[age]});
    }
    return skins;
}

Drawing Desk::Picture() {
    FieldScene scene;
    scene.kinds = bench_.Working().EnemyData;
    scene.others = Others();
    scene.note = note_;
    scene.notePlace = notePlace_;
    scene.stroke = stroke_;
    if (IsEnemy(range_.first)) {
        scene.entry = Entry(range_.first);
        scene.kind = scene.kinds[scene.entry.No];
        scene.path = PathOfEntry(range_.first);
        scene.age = time_ - Stage().frames[static_cast<std::size_t>(range_.first)];
        scene.step = step_;
    }
    return DrawField(scene);
}

std::string Desk::Caption() {
    const int row = range_.first;
    if (!IsEnemy(row)) return "entry " + std::to_string(row) + ": " + Cell(row, DeskColumn::name);
    const EnemyPath& path = PathOfEntry(row);
    std::string text = "entry " + std::to_string(row) + ", kind " + std::to_string(Entry(row).No) + ", ";
    const Byte pattern = bench_.Working().EnemyData[Entry(row).No].MoveNo;
    text += "pattern " + std::to_string(pattern) + ": ";
    if (path.end == PathEnd::faulty) return text + "its kind or pattern leads outside the tables";
    if (path.leaves < 0) return text + "it never leaves";
    return text + "leaves after " + std::to_string(path.leaves) + " frames" +
           (path.end == PathEnd::goesOn ? ", but is never removed" : "");
}

void Desk::Grip(DrawnPoint at, float reach) {
    held_ = Held::nothing;
    acted_ = false;
    if (drawing_) {
        held_ = Held::stroke;
        stroke_ = {at};
        return;
    }
    const int row = range_.first;
    const EnemyPath path = PathOfEntry(row);
    if (IsEnemy(row)) kind_ = Entry(row).No;
    const EnemyDataType& kind = bench_.Working().EnemyData[kind_];
    float nearest = reach;
    for (std::size_t i = 0; i < path.points.size(); ++i) {
        const DrawnPoint middle = MiddleOf(path.points[i], kind);
        if (Distance(middle, at) >= nearest || StepMoved(path, i) < 0) continue;
        nearest = Distance(middle, at);
        held_ = Held::step;
        heldPoint_ = i;
        grip_ = {at.x - middle.x, at.y - middle.y};
        step_ = StepMoved(path, i);
    }
    if (held_ == Held::step || path.points.empty()) return;
    const DrawnPoint start = StartOf(Entry(row), kind);
    const bool onEntry = std::abs(at.x - start.x) <= static_cast<float>(kind.Width) / 2 + reach &&
                         std::abs(at.y - start.y) <= static_cast<float>(kind.Height) / 2 + reach;
    if (onEntry) {
        held_ = Held::entry;
        grip_ = {at.x - start.x, at.y - start.y};
        return;
    }
    for (const OnionSkin& other : Others()) {
        if (Covers(other.at, bench_.Working().EnemyData[other.kind], at)) return Choose(other.entry, other.entry);
    }
}

// A drag is one action, however often the mouse moves: each move takes the last one's back.
void Desk::Replace(const Tables& next) {
    if (acted_) bench_.GoBack();
    const int changes = bench_.Changes();
    bench_.Act(next);
    acted_ = bench_.Changes() != changes;
}

void Desk::DragEntry(DrawnPoint at, bool fine) {
    const EnemyDataType& kind = bench_.Working().EnemyData[kind_];
    auto next = std::make_unique<Tables>(bench_.Working());
    StageDataType& entry = next->Stages[range_.table][range_.first];
    entry.X = Fitted(at.x - grip_.x - static_cast<float>(kind.Width) / 2, fine);
    entry.Y = Fitted(at.y - grip_.y - static_cast<float>(kind.Height) / 2, fine);
    note_ = "X " + TextOf(entry.X) + "  Y " + TextOf(entry.Y);
    Replace(*next);
}

// The held point follows the mouse by what the one step adds between the point before it and itself.
void Desk::DragStep(DrawnPoint at, bool fine) {
    const EnemyPath path = PathOfEntry(range_.first);
    const EnemyDataType& kind = bench_.Working().EnemyData[kind_];
    const int pattern = PatternOfKind();
    if (pattern < 0 || heldPoint_ >= path.points.size()) return;
    const DrawnPoint before =
        heldPoint_ > 0 ? MiddleOf(path.points[heldPoint_ - 1], kind) : StartOf(Entry(range_.first), kind);
    auto next = std::make_unique<Tables>(bench_.Working());
    EneMoveType& step = next->EneMove[pattern][step_];
    if (step.Flag >= kJump) return;
    const EneMoveType old = step;
    step.DX = Fitted(at.x - grip_.x - before.x, fine);
    step.DY = Fitted(at.y - grip_.y - before.y, fine);
    note_ =
        "step " + std::to_string(step_) + ":  " + Arrow("DX", old.DX, step.DX) + "  " + Arrow("DY", old.DY, step.DY);
    Replace(*next);
}

void Desk::DragTo(DrawnPoint at, bool fine) {
    if (!left_.empty() || held_ == Held::nothing) return;
    notePlace_ = at;
    if (held_ == Held::stroke && Distance(stroke_.back(), at) >= 1) stroke_.push_back(at);
    if (held_ == Held::entry) DragEntry(at, fine);
    if (held_ == Held::step) DragStep(at, fine);
}

void Desk::LetGo() {
    if (held_ == Held::stroke) {
        message_ = Do(
            [this](Tables& tables) {
                std::string problem = FlyAlong(tables, kind_, stroke_, speed_);
                if (!problem.empty()) return problem;
                const EnemyDataType& kind = tables.EnemyData[kind_];
                StageDataType& entry = tables.Stages[range_.table][range_.first];
                entry.X = Fitted(stroke_.front().x - static_cast<float>(kind.Width) / 2, false);
                entry.Y = Fitted(stroke_.front().y - static_cast<float>(kind.Height) / 2, false);
                return problem;
            },
            "kind " + std::to_string(kind_) + ": a path drawn by hand");
        drawing_ = !message_.empty();
        step_ = 0;
    }
    held_ = Held::nothing;
    stroke_.clear();
    note_.clear();
    Changed();
}

std::vector<Byte> Desk::Animation() const {
    constexpr int kShown = 600;
    std::vector<Byte> frames;
    for (const PathPoint& point : PathOf(kind_, 0, 0, kShown).points) frames.push_back(point.Anime);
    return frames;
}

// The frame of another kind that lies there, else the place counted in sprites of this kind's size.
void Desk::ChooseFrame(int x, int y) {
    const EnemyDataType own = bench_.Working().EnemyData[kind_];
    EnemyDataType found = own;
    const int width = std::max<int>(own.Width, 1), height = std::max<int>(own.Height, 1);
    found.SX = static_cast<Integer>(x / width * width);
    found.SY = static_cast<Integer>(y / (2 * height) * (2 * height));
    for (int k = 0; k <= kLastSheetKind; ++k) {
        const EnemyDataType& other = bench_.Working().EnemyData[k];
        const bool onRow = other.Width > 0 && y >= other.SY && y < other.SY + 2 * other.Height;
        const int frames =
            onRow
                ? RunPattern(bench_.Working().EneMove[std::min<int>(other.MoveNo, kMovePatterns - 1)]).highestFrame + 1
                : 0;
        if (!onRow || x < other.SX || x >= other.SX + frames * other.Width) continue;
        found.SX = other.SX, found.SY = other.SY, found.Width = other.Width, found.Height = other.Height;
    }
    message_ = Do([&](Tables& tables) -> std::string {
        tables.EnemyData[kind_] = found;
        return {};
    });
}
