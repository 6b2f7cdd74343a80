#include <cmath>

#include "combat/enemy_move.h"
#include "dump_parts.h"

namespace {

constexpr std::size_t kShortestLoop = 3;

// How the frames of an animation follow one another: in step i of a loop it is (i + phase) // every % frames.
struct Animation {
    int every = 1;
    int frames = 1;
    int phase = 0;

    int FrameAt(std::size_t i) const { return (static_cast<int>(i) + phase) / every % frames; }

    std::string Text() const {
        std::string text = phase == 0 ? "i" : "(i + " + std::to_string(phase) + ")";
        if (every > 1) text += " // " + std::to_string(every);
        return text + " % " + std::to_string(frames);
    }
};

std::size_t LengthOf(const Animation& animation, std::span<const EneMoveType> steps) {
    std::size_t length = 0;
    while (length < steps.size() && steps[length].Anime == animation.FrameAt(length)) ++length;
    return length;
}

// A loop over steps that differ in their number only.
struct Loop {
    std::size_t length = 1;
    Progression dx, dy;
    std::optional<Animation> animation;  // none: the frame stays
};

class StepWriter {
  public:
    StepWriter(std::span<const EneMoveType> steps, const Words& words) : steps_(steps), words_(words) {
        for (std::size_t i = 0; i < steps.size(); ++i) {
            if (JumpsBack(i)) targets_.insert(JumpTarget(steps[i].DX, i));
        }
    }

    std::string Write() {
        for (std::size_t i = 0; i < steps_.size();) {
            if (targets_.contains(static_cast<int>(i))) text_ += TargetName(i) + " = next_step()\n";
            const Loop loop = LoopAt(i);
            WriteLoop(loop, i);
            i += loop.length;
        }
        return text_;
    }

  private:
    bool JumpsBack(std::size_t i) const {
        const EneMoveType& step = steps_[i];
        return (step.Flag == kJump || step.Flag == kRepeatStep) && JumpTarget(step.DX, i) >= 0;
    }

    // The steps from `first` on that have its Flag and move evenly, whatever they show.
    Loop EvenFrom(std::size_t first) const {
        const auto rest = steps_.subspan(first, EndOfStretch(targets_, first, steps_.size()) - first);
        Loop best;
        std::vector<Single> dx, dy;
        for (const EneMoveType& step : rest) {
            if (step.Flag != rest.front().Flag || JumpsBack(first + dx.size())) break;
            dx.push_back(step.DX);
            dy.push_back(step.DY);
            const auto x = ProgressionOf(dx), y = ProgressionOf(dy);
            if (x && y) best = {dx.size(), *x, *y, {}};
            if (dx.size() > best.length + 2) break;
        }
        return best;
    }

    // The animation that goes on longest, the pattern's own before others.
    Animation AnimationOf(std::span<const EneMoveType> steps) const {
        constexpr int kSlowest = 8, kMostFrames = 8;
        Animation best = last_;
        std::size_t length = 0;
        const auto consider = [&](int every, int frames) {
            for (int phase = 0; phase < every * frames; ++phase) {
                const Animation animation{every, frames, phase};
                const std::size_t its = LengthOf(animation, steps);
                if (its > length) {
                    best = animation;
                    length = its;
                }
            }
        };
        consider(last_.every, last_.frames);
        for (int every = 1; every <= kSlowest; ++every) {
            for (int frames = 2; frames <= kMostFrames; ++frames) consider(every, frames);
        }
        return best;
    }

    Loop LoopAt(std::size_t first) {
        Loop loop = EvenFrom(first);
        auto steps = steps_.subspan(first, loop.length);
        const auto shows = [&](const EneMoveType& step) { return step.Anime == steps.front().Anime; };
        std::size_t still = 0;
        while (still < steps.size() && shows(steps[still])) ++still;
        if (still < loop.length) {
            const Animation animation = AnimationOf(steps);
            const std::size_t moving = LengthOf(animation, steps);
            if (moving > still) loop.animation = last_ = animation;
            loop.length = std::max(moving, still);
        }
        if (loop.length < kShortestLoop) return {};
        return loop;
    }

    void WriteLoop(const Loop& loop, std::size_t first) {
        Cells cells = CellsOf(steps_[first], words_);
        if (loop.length == 1) {
            if (JumpsBack(first)) cells[0].text = TargetName(static_cast<std::size_t>(steps_[first].DX));
            text_ += "step { " + ListOf(cells) + " }\n";
            return;
        }
        cells[0].text = loop.dx.Text();
        cells[1].text = loop.dy.Text();
        if (loop.animation) cells[2].text = loop.animation->Text();
        const bool counts = loop.animation || loop.dx.step != "0" || loop.dy.step != "0";
        text_ += std::string("for ") + (counts ? "i = 0, " : "_ = 1, ") +
                 std::to_string(counts ? loop.length - 1 : loop.length) + " do step { " + ListOf(cells) + " } end\n";
    }

    std::span<const EneMoveType> steps_;
    const Words& words_;
    std::set<int> targets_;
    Animation last_;
    std::string text_;
};

}  // namespace

std::string DumpSteps(std::span<const EneMoveType> steps, const Words& words) {
    return StepWriter(steps, words).Write();
}
