#include "recording/verify.h"

#include <algorithm>
#include <map>

#include "host/window.h"
#include "recording/forget_program.h"
#include "recording/keeper.h"
#include "recording/released_tables.h"
#include "shell/main_routine.h"
#include "state/main_form.h"

namespace {

void (*replayFrameDone)() = nullptr;
RunResult seen;

// Without an image nothing is composed, which is most of a frame's work.
void FrameDone() {
    MainForm.Crt.image.clear();
    MainForm.Crt.imageWidth = MainForm.Crt.imageHeight = 0;
    seen.stage = game.StageNo;
    seen.spread += game.ShotMode != 0;
    replayFrameDone();
}

void Play(const Recording& recording) {
    ForgetProgram();
    StartProgram();
    StartReplay(recording);
    replayFrameDone = gameWatcher.FrameDone;
    gameWatcher.FrameDone = FrameDone;
    seen = {};
    try {
        GameLoop();
    } catch (const EndProgram&) {  // a recording that was cut off ends so
    }
    seen.how = OutcomeOf(recording, game);
}

std::string At(const EventTime& time) {
    return "after frame " + std::to_string(time.frame);
}

// What can be said of the events without playing them.
std::string TimingFault(const Recording& recording) {
    constexpr int kMostChanges = 16;  // of one key at one yield
    EventTime last{};
    std::map<int, int> changes;
    for (const auto& [time, event] : recording.events) {
        if (time.yield < 0 || time < last) return "an event " + At(time) + " stands behind a later one";
        if (time.frame > recording.endFrames) return "an event " + At(time) + " comes after the end";
        if (time != last) changes.clear();
        if (++changes[event.code] > kMostChanges) return "too many key presses for one moment, " + At(time);
        last = time;
    }
    return {};
}

std::string ResultFault(const Recording& recording) {
    if (game.Score != recording.endScore) {
        return "the score is " + std::to_string(game.Score) + ", not " + std::to_string(recording.endScore);
    }
    if (game.MyPower != recording.endEnergy) return "the energy at the end is another one";
    const RunResult& said = recording.result;
    if (said.how != Outcome::unknown && said.how != Outcome::cutOff && said != seen) {
        return std::string("the game is ") + OutcomeName(seen.how) + " in stage " + std::to_string(seen.stage) +
               " after " + std::to_string(seen.spread) + " frames of the spread shot, which is not what it says";
    }
    return {};
}

Verification Judge(const Recording& recording) {
    const ReplayResult& replay = Replay();
    Verification judged{Verdict::agrees, {}, replay.frame, game.Score};
    const auto is = [&](Verdict verdict, const std::string& reason) {
        judged.verdict = verdict;
        judged.reason = reason;
    };
    const std::string result = ResultFault(recording);
    if (replay.late) {
        is(Verdict::impossibleTiming, "an event comes at a moment that the game does not have, " + At(*replay.late));
    } else if (replay.state != ReplayState::finished) {
        is(Verdict::otherEvents, "frame " + std::to_string(replay.frame) + ": " +
                                     (replay.message.empty() ? "the game ends there" : replay.message));
    } else if (!result.empty()) {
        is(Verdict::forgedResult, result);
    }
    return judged;
}

}  // namespace

const char* VerdictName(Verdict verdict) {
    constexpr const char* kNames[] = {
        "agrees", "damaged", "other version", "other tables", "impossible timing", "other events", "forged result"};
    static_assert(std::size(kNames) == static_cast<std::size_t>(Verdict::count));
    return kNames[static_cast<std::size_t>(verdict)];
}

Verification Verify(const Recording& recording, bool anyTables) {
    if (recording.rules != kRulesVersion) {
        return {Verdict::otherVersion, "it was played under rules " + std::to_string(recording.rules) + " by program " +
                                           recording.program + "; here are rules " + std::to_string(kRulesVersion)};
    }
    if (recording.endFrames > kMostVerifiedFrames) return {Verdict::damaged, "it is too long to be a game"};
    const std::string timing = TimingFault(recording);
    if (!timing.empty()) return {Verdict::impossibleTiming, timing};
    if (!anyTables && !UseTables(recording.dataDigest)) {
        return {Verdict::otherTables, "its tables are neither those here nor a released version's"};
    }
    Play(recording);
    Verification judged = Judge(recording);
    StopReplay();
    UseOwnTables();
    return judged;
}

std::string WhyNotRanked(const Recording& recording) {
    if (recording.parent) return "taken over";
    if (!CountsAsBest(recording)) return "invincible, or not from the start";
    if (LeftAnAdvantage(recording.left)) return "begun with shots or a defeated boss of an earlier game";
    return recording.endDigest == 0 ? "cut off" : "";
}
