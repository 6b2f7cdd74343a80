#include "shell/best_scores.h"

#include "host/window.h"
#include "platform/folder.h"
#include "shell/main_form.h"
#include "shell/recording.h"
#include "stage/byte_order.h"

namespace {

constexpr const char* kScoresFile = "\\Scores.DAT";
bool saveFailureTold = false;

void TellSaveFailure(const std::string& reason) {
    LogLine("Scores.DAT: " + reason);
    if (saveFailureTold) return;
    saveFailureTold = true;
    MsgBox("Scores.DAT: the best scores could not be saved: " + reason, "Tarnveil");
}

}  // namespace

Long* BestScoreInForce() {
    if (game.DigestMode == 4) return &game.Scores.ScoreAttack;
    if (game.DigestMode != 0) return nullptr;
    if (MainForm.MENU101.Checked) return &game.Scores.Easy;
    if (MainForm.MENU102.Checked) return &game.Scores.Nomal;
    if (MainForm.MENU103.Checked) return &game.Scores.Hard;
    return nullptr;
}

void LoadBestScores() {
    game.Scores = {};
    const FileBytes file = ReadFolderFile(kScoresFile);
    if (file.bytes.size() >= kScoresFileSize) {
        ByteReader in(file.bytes);
        for (Long* field : {&game.Scores.Easy, &game.Scores.Nomal, &game.Scores.Hard, &game.Scores.ScoreAttack}) {
            *field = in.Get<Long>();
        }
    } else if (file.error != FileError::missing) {
        LogLine("Scores.DAT: counts as zeros: " + (file.reason.empty() ? "shorter than 16 bytes" : file.reason));
    }
    if (const Long* best = BestScoreInForce()) game.HiScore = *best;
}

void SaveBestScores() {
    if (Replay().state != ReplayState::none) return;  // a replayed score is nobody's
    if (Long* best = BestScoreInForce()) *best = game.HiScore;
    ByteWriter out;
    for (const Long field : {game.Scores.Easy, game.Scores.Nomal, game.Scores.Hard, game.Scores.ScoreAttack}) {
        out.Put(field);
    }
    const std::string reason = WriteFolderFile(kScoresFile, out.bytes);
    if (!reason.empty()) TellSaveFailure(reason);
}
