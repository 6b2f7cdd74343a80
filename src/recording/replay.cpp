// Playing recordings again, frame by frame against their fingerprints.
#include <algorithm>

#include "platform/events.h"
#include "recording/recording.h"
#include "shell/best_scores.h"
#include "shell/game_loop.h"
#include "stage/plays.h"
#include "state/main_form.h"
#include "state/options.h"
#include "state/random.h"

namespace {

Recording played;
ReplayResult result;
EventTime now;
std::size_t nextEvent = 0;
int idleYields = 0;  // since the last frame or event

void SetMenus(const Recording& r) {
    gameStart = r.start;
    SetOptions(r.options);
    ChooseRow(kDifficulties, &Difficulty::level, r.level);
    ChooseRow(kPlays, &Play::number, r.play);
}

// The state as it was when the recorded game began: the same leftovers of the title.
void GameStarted(std::uint64_t) {
    game.JoyUse = played.options[&MainFormType::Menu008] ? True : False;
    game.JoyId = played.joyId;
    game.JoyCenterX = played.joyCenterX;
    game.JoyCenterY = played.joyCenterY;
    game.ScrollY = static_cast<Integer>(played.scroll);
    game.HiScore = played.hiScore;
    PutLeftovers(played.left, game);
    ResetInputState();
    for (const InputEvent& stick : played.sticks) ApplyInput(stick);
    for (const HeldKey& key : played.held) HoldKey(key);
    result.state = ReplayState::playing;
}

constexpr std::size_t kLongestValues = 600;  // of a group, in messages

std::string DescribeDifference(const FrameDigest& digest, const FrameDigest& wanted) {
    std::string text;
    for (int i = 0; i < kStateGroups; ++i) {
        const auto index = static_cast<std::size_t>(i);
        if (digest[index] == wanted[index]) continue;
        const auto group = static_cast<StateGroup>(i);
        std::string values = DescribeGroup(game, group);
        if (values.size() > kLongestValues) values = values.substr(0, kLongestValues) + " ...";
        text += std::string(text.empty() ? "" : "\n") + GroupName(group) + ": now " + values;
    }
    return text;
}

void Differ(const std::string& message) {
    result.state = ReplayState::differs;
    result.message = message;
    game.QuitGame = True;
}

bool CheckAgrees() {
    const auto index = static_cast<std::size_t>(now.frame / kCheckInterval - 1);
    return index >= played.checks.size() || DigestState(game) == played.checks[index];
}

void FrameDone() {
    if (result.state != ReplayState::playing) return;
    const auto index = static_cast<std::size_t>(now.frame);
    ++now.frame;
    now.yield = 0;
    idleYields = 0;
    result.frame = now.frame;
    if (now.frame > played.endFrames) return Differ("the game goes on after the recording's last frame");
    if (now.frame % kCheckInterval == 0 && !CheckAgrees()) return Differ("its events do not lead to its check");
    if (played.frames.empty()) return;
    const FrameDigest digest = DigestFrame(game);
    if (digest != played.frames[index]) Differ(DescribeDifference(digest, played.frames[index]));
}

void GameEnded() {
    if (result.state != ReplayState::playing) return;
    if (nextEvent < played.events.size()) result.late = played.events[nextEvent].time;
    if (result.frame < played.endFrames) {
        result.state = ReplayState::differs;
        result.message = "the game ends before the recording's last frame, " + std::to_string(played.endFrames);
    } else if (played.endDigest != 0 && DigestState(game) != played.endDigest) {
        result.state = ReplayState::differs;
        result.message = "the last frame is the same but the state at the end is not";
    } else {
        result.state = ReplayState::finished;
    }
}

bool EventsAreLeft() {
    return nextEvent < played.events.size();
}

// A game that was cut off has no end of its own: its replay ends where the recording does.
bool CutOffHere() {
    return played.endDigest == 0 && now.frame >= played.endFrames && !EventsAreLeft();
}

// The staff roll has yields but no frames. One that goes on and on after the frame's last event would wait for its key
// for ever.
bool GoneAstray() {
    constexpr int kLongestRoll = 2000;  // yields; the roll takes its key from 1330 on
    return !(EventsAreLeft() && played.events[nextEvent].time.frame <= now.frame) && ++idleYields > kLongestRoll;
}

void FeedRecorded(std::vector<InputEvent>& events) {
    while (EventsAreLeft() && played.events[nextEvent].time <= now) {
        if (played.events[nextEvent].time < now) result.late = played.events[nextEvent].time;
        events.push_back(played.events[nextEvent++].event);
        idleYields = 0;
    }
    ++now.yield;
    if (CutOffHere()) {
        result.state = ReplayState::finished;
        events.push_back({InputEvent::Kind::closeWindow});
    } else if (GoneAstray()) {
        Differ("the game does not come to its next frame or its end");
        events.push_back({InputEvent::Kind::closeWindow});
    }
}

// At the title the game starts by itself; when it has been played the program ends.
void Tap(std::vector<InputEvent>& events) {
    std::erase_if(events, [](const InputEvent& event) { return !LeavesProgram(event); });
    if (result.state == ReplayState::waiting) {
        SetMenus(played);  // again: the start of the program has put every option back
        events.push_back({InputEvent::Kind::keyDown, VK_SPACE});
        events.push_back({InputEvent::Kind::keyUp, VK_SPACE});
    } else if (result.state == ReplayState::playing) {
        FeedRecorded(events);
    } else {
        events.push_back({InputEvent::Kind::closeWindow});
    }
}

}  // namespace

void StartReplay(const Recording& recording) {
    played = recording;
    result = {ReplayState::waiting};
    now = {};
    nextEvent = 0;
    idleYields = 0;
    SetMenus(played);
    keepBestScores = false;
    FixSeed(played.seed);
    SetEventTap(Tap);
    gameWatcher = {GameStarted, FrameDone, GameEnded};
}

void StopReplay() {
    result = {};
    keepBestScores = true;
    gameStart = {};
    UseClockSeed();
    SetEventTap(nullptr);
    gameWatcher = {};
}

ReplayPlace PlaceOfReplay() {
    return {now, nextEvent, idleYields};
}

void SetPlaceOfReplay(const ReplayPlace& place) {
    now = place.now;
    nextEvent = place.nextEvent;
    idleYields = place.idleYields;
    result = {ReplayState::playing, now.frame};
}

const ReplayResult& Replay() {
    return result;
}
