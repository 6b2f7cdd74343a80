#include "author/field_drawing.h"

#include <cmath>

#include "stage/stage_script.h"
#include "state/field_size.h"
#include "toolkit/numbers.h"

namespace {

constexpr float kGrid = 40;       // pixels
constexpr int kNumberEvery = 10;  // frames
constexpr float kLabelRoom = 22;  // between two texts, in pixels

constexpr Color kOutside = RGB(16, 19, 31), kInside = RGB(5, 7, 16), kGridLine = RGB(70, 84, 128),
                kEdgeLine = RGB(106, 122, 170), kPathLine = RGB(96, 200, 255), kTick = RGB(225, 240, 255),
                kFire = RGB(255, 170, 64), kMark = RGB(255, 240, 120), kFaint = RGB(150, 165, 205);

class Painter {
  public:
    explicit Painter(const FieldScene& scene) : scene_(scene) {}
    Drawing Draw();

  private:
    void Ground();
    void Others();
    void Path();
    void Marks();
    void Numbers();
    void Enemy();
    void Entry();
    void Note();
    void Say(DrawnPoint at, const std::string& text, Color color, bool small);
    DrawnPoint Middle(std::size_t i) const { return MiddleOf(scene_.path.points[i], scene_.kind); }

    const FieldScene& scene_;
    std::vector<DrawnPoint> said_;  // where texts stand; no two on one place
    Drawing drawing_;
};

void Painter::Ground() {
    auto& shapes = drawing_.shapes;
    shapes.push_back(DrawnBox{drawing_.corner, drawing_.width, drawing_.height, {kOutside}});
    shapes.push_back(DrawnBox{{0, 0}, kFieldWidth, kFieldHeight, {kInside}});
    for (int i = 1; kGrid * static_cast<float>(i) < kFieldHeight; ++i) {
        const float at = kGrid * static_cast<float>(i);
        if (at < kFieldWidth) shapes.push_back(DrawnLine{{{at, 0}, {at, kFieldHeight}}, {kGridLine, 0.3F}});
        shapes.push_back(DrawnLine{{{0, at}, {kFieldWidth, at}}, {kGridLine, 0.3F}});
    }
    shapes.push_back(DrawnBox{{0, 0}, kFieldWidth, kFieldHeight, {}, {kEdgeLine, 1}});
    std::get<DrawnBox>(shapes.back()).fill.strength = 0;
}

void Painter::Others() {
    constexpr float kSkin = 0.4F;
    for (const OnionSkin& other : scene_.others) {
        const EnemyDataType& kind = scene_.kinds[other.kind];
        drawing_.shapes.push_back(DrawnSprite{{other.at.X, other.at.Y}, kind, other.kind, other.at.Anime, kSkin});
        const DrawnPoint corner{other.at.X, other.at.Y - 4};
        drawing_.shapes.push_back(DrawnText{corner, std::to_string(other.entry), {kFaint, 0.7F}, true});
    }
}

void Painter::Path() {
    if (scene_.path.points.empty()) return;
    DrawnLine line{{StartOf(scene_.entry, scene_.kind)}, {kPathLine, 0.9F}, 1.5F};
    for (std::size_t i = 0; i < scene_.path.points.size(); ++i) line.points.push_back(Middle(i));
    drawing_.shapes.push_back(std::move(line));
}

// A dot for every frame, a ring where it fires.
void Painter::Marks() {
    for (std::size_t i = 0; i < scene_.path.points.size(); ++i) {
        const PathPoint& point = scene_.path.points[i];
        const bool tenth = i % kNumberEvery == 0;
        drawing_.shapes.push_back(DrawnDot{Middle(i), tenth ? 2.6F : 1.4F, {tenth ? kTick : kPathLine}});
        if (point.Fire != 0) drawing_.shapes.push_back(DrawnDot{Middle(i), 5, {kFire}, true});
        if (scene_.step >= 0 && StepMoved(scene_.path, i) == scene_.step) {
            drawing_.shapes.push_back(DrawnDot{Middle(i), 6.5F, {kMark}, true});
        }
    }
}

void Painter::Say(DrawnPoint at, const std::string& text, Color color, bool small) {
    for (const DrawnPoint& other : said_) {
        if (std::abs(other.x - at.x) < kLabelRoom && std::abs(other.y - at.y) < 11) return;
    }
    said_.push_back(at);
    drawing_.shapes.push_back(DrawnText{at, text, {color}, small});
}

// Fire first: a frame number that has no room is missed less.
void Painter::Numbers() {
    const auto& points = scene_.path.points;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const bool first = points[i].Fire != 0 && (i == 0 || points[i - 1].Fire != points[i].Fire);
        if (first) Say({Middle(i).x - 22, Middle(i).y - 8}, "F" + std::to_string(points[i].Fire), kFire, true);
    }
    for (std::size_t i = 0; i < points.size(); i += kNumberEvery) {
        Say({Middle(i).x + 8, Middle(i).y}, std::to_string(i), kTick, true);
    }
}

void Painter::Enemy() {
    const auto& points = scene_.path.points;
    if (scene_.age < 0 || scene_.age >= static_cast<int>(points.size())) return;
    const PathPoint& now = points[static_cast<std::size_t>(scene_.age)];
    drawing_.shapes.push_back(DrawnSprite{{now.X, now.Y}, scene_.kind, scene_.entry.No, now.Anime});
}

// Where it comes from: its sprite, pale, in a frame that can be taken hold of.
void Painter::Entry() {
    if (scene_.path.points.empty()) return;
    const DrawnPoint middle = StartOf(scene_.entry, scene_.kind);
    const float width = scene_.kind.Width, height = scene_.kind.Height;
    const DrawnPoint corner{middle.x - width / 2, middle.y - height / 2};
    drawing_.shapes.push_back(
        DrawnSprite{corner, scene_.kind, scene_.entry.No, scene_.path.points.front().Anime, 0.5F});
    DrawnBox frame{corner, width, height, {}, {kMark, 0.9F}, true};
    frame.fill.strength = 0;
    drawing_.shapes.push_back(frame);
}

void Painter::Note() {
    if (!scene_.stroke.empty()) drawing_.shapes.push_back(DrawnLine{scene_.stroke, {kMark}, 2});
    if (!scene_.note.empty())
        drawing_.shapes.push_back(DrawnText{{scene_.notePlace.x + 12, scene_.notePlace.y - 12}, scene_.note, {kMark}});
}

Drawing Painter::Draw() {
    drawing_ = {{-kFieldMargin, -kFieldMargin}, kFieldWidth + 2 * kFieldMargin, kFieldHeight + 2 * kFieldMargin, {}};
    Ground();
    Others();
    Path();
    Marks();
    Entry();
    Enemy();
    Numbers();
    Note();
    return std::move(drawing_);
}

}  // namespace

DrawnPoint MiddleOf(const PathPoint& point, const EnemyDataType& kind) {
    return {point.X + static_cast<float>(kind.Width) / 2, point.Y + static_cast<float>(kind.Height) / 2};
}

DrawnPoint StartOf(const StageDataType& entry, const EnemyDataType& kind) {
    const Single x = entry.X == kRandomX ? kMiddleOfRandomX : entry.X;
    return {x + static_cast<float>(kind.Width) / 2, entry.Y + static_cast<float>(kind.Height) / 2};
}

int StepMoved(const EnemyPath& path, std::size_t i) {
    return i + 1 < path.points.size() ? path.points[i + 1].Step - 1 : -1;
}

Drawing DrawField(const FieldScene& scene) {
    return Painter(scene).Draw();
}
