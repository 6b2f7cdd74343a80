#include "platform/screen.h"

#include "state/main_form.h"
#include "state/state.h"
#include "toolkit/surface.h"

namespace {

constexpr Long kBannerFirst = 20;
constexpr Long kBannerLast = 100;
constexpr Long kMessageCountEnd = 110;

// Where a word goes on Crt and where it lies on MessagePic. Painted with OR.
struct Word {
    At to;
    int width;
    int height;
    At from;
};
constexpr Word kStageWord = {{60, 200}, 180, 50, {0, 0}};
constexpr Word kStageDigit = {{230, 200}, 48, 48, {0, 144}};  // digit 1; the next ones lie to its right
constexpr Word kAttackStageWord = {{80, 180}, 172, 48, {0, 0}};
constexpr Word kAttackTitle = {{35, 228}, 272, 48, {0, 96}};
constexpr Word kGameOverWords = {{85, 190}, 180, 90, {0, 200}};
constexpr Word kStageClearWords = {{40, 190}, 300, 60, {0, 293}};

void Paint(const Word& word, int sourceOffset = 0) {
    BitBlt(MainForm.Crt, word.to.x, word.to.y, word.width, word.height, MainForm.MessagePic, word.from.x + sourceOffset,
           word.from.y, SRCPAINT);
}

void PaintBanner() {
    if (game.StageNo == kScoreAttackStage) {
        Paint(kAttackStageWord);
        Paint(kAttackTitle);
    } else if (game.StageNo >= 1 && game.StageNo <= kLastBannerStage) {
        Paint(kStageWord);
        Paint(kStageDigit, (game.StageNo - 1) * kStageDigit.width);
    }
}

}  // namespace

void ScrollBackground() {
    const int w = game.ScreenW, h = game.ScreenH, s = game.ScrollY;
    BitBlt(MainForm.Crt, 0, s, w, h - s, MainForm.B_Crt, 0, 0, SRCCOPY);
    BitBlt(MainForm.Crt, 0, 0, w, s, MainForm.B_Crt, 0, h - s, SRCCOPY);
    const int next = s + game.ScrollSpeed;
    game.ScrollY = static_cast<Integer>(next >= h ? 0 : next);
}

void DrawMessages() {
    if (game.MessageCount < kMessageCountEnd) ++game.MessageCount;
    if (game.MessageCount >= kBannerFirst && game.MessageCount <= kBannerLast) PaintBanner();
    if (game.GameOver == 1) Paint(kGameOverWords);
    if (game.StageClear != 0 && game.GameOver == 0) Paint(kStageClearWords);
}
