#include "stage/plays.h"

#include <algorithm>
#include <iterator>

#include "platform/screen.h"

namespace {

template <typename Number>
constexpr const Play* Find(int wanted, Number Play::*number) {
    const auto* found = std::ranges::find(kPlays, wanted, number);
    return found == std::end(kPlays) ? nullptr : found;
}

constexpr bool NumbersAreUnique() {
    return std::ranges::all_of(kPlays, [](const Play& play) {
        return Find(play.number, &Play::number) == &play && Find(play.stageNo, &Play::stageNo) == &play;
    });
}
static_assert(NumbersAreUnique(), "no two plays have the same number or the same stage");
static_assert(std::ranges::all_of(kPlays,
                                  [](const Play& play) {
                                      return play.stageNo == kScoreAttackStage ||
                                             (play.stageNo >= 1 && play.stageNo <= kLastBannerStage);
                                  }),
              "the banner has a digit for each stage");
static_assert(Find(kNormalPlay, &Play::number)->stageNo == 1, "the normal game begins with stage 1");

}  // namespace

const Play* FindPlay(int number) {
    return Find(number, &Play::number);
}

const Play* FindStage(int stageNo) {
    return Find(stageNo, &Play::stageNo);
}

const Play* NextStage(const Play& play) {
    return play.stageNo == kScoreAttackStage ? nullptr : FindStage(play.stageNo + 1);
}

bool FollowsAnother(const Play& play) {
    return std::ranges::any_of(kPlays, [&](const Play& other) { return NextStage(other) == &play; });
}
