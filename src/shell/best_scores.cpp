#include "shell/best_scores.h"

#include <iterator>

#include "host/window.h"
#include "stage/plays.h"
#include "state/options.h"
#include "toolkit/byte_order.h"
#include "toolkit/folder.h"

namespace {

constexpr const char* kScoresFile = "\\Scores.DAT";
constexpr Long ScoresType::*kScoresInFile[] = {&ScoresType::Easy, &ScoresType::Nomal, &ScoresType::Hard,
                                               &ScoresType::ScoreAttack};
static_assert(sizeof(Long) * std::size(kScoresInFile) == kScoresFileSize);
bool saveFailureTold = false;

void TellSaveFailure(const std::string& reason) {
    LogLine("Scores.DAT: " + reason);
    if (saveFailureTold) return;
    saveFailureTold = true;
    MsgBox("Scores.DAT: the best scores could not be saved: " + reason, "Tarnveil");
}

}  // namespace

Long* BestScoreInForce() {
    const Play* play = FindPlay(game.DigestMode);
    if (!play) return nullptr;
    if (play->best.own) return &(game.Scores.*play->best.own);
    for (const auto& [level, item, best] : kDifficulties) {
        if (play->best.ofDifficulty && (MainForm.*item).Checked) return &(game.Scores.*best);
    }
    return nullptr;
}

void LoadBestScores() {
    game.Scores = {};
    const FileBytes file = ReadFolderFile(kScoresFile);
    if (file.bytes.size() >= kScoresFileSize) {
        ByteReader in(file.bytes);
        for (auto score : kScoresInFile) game.Scores.*score = in.Get<Long>();
    } else if (file.error != FileError::missing) {
        LogLine("Scores.DAT: counts as zeros: " + (file.reason.empty() ? "shorter than 16 bytes" : file.reason));
    }
    if (const Long* best = BestScoreInForce()) game.HiScore = *best;
}

void SaveBestScores() {
    if (!keepBestScores) return;
    if (Long* best = BestScoreInForce()) *best = game.HiScore;
    ByteWriter out;
    for (auto score : kScoresInFile) out.Put(game.Scores.*score);
    const std::string reason = WriteFolderFile(kScoresFile, out.bytes);
    if (!reason.empty()) TellSaveFailure(reason);
}
