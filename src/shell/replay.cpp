// Playing recordings again, frame by frame against their fingerprints.
#include <algorithm>

#include "platform/events.h"
#include "shell/game_loop.h"
#include "shell/main_form.h"
#include "shell/random.h"
#include "shell/recording.h"

namespace {

Recording played;
ReplayResult result;
EventTime now;
std::size_t nextEvent = 0;
int idleYields = 0;  // since the last frame or event

void SetOptions(const Recording& r) {
    MainForm.Menu002.Checked = r.wait;
    MainForm.Menu003.Checked = r.invincible;
    MainForm.Menu004.Checked = r.effects;
    MainForm.Menu006.Checked = r.bgm;
    (r.level == 1 ? MENU101_Click : r.level == 5 ? MENU103_Click : MENU102_Click)();
    (r.play == 2 ? Menu402_Click : r.play == 3 ? Menu403_Click : r.play == 4 ? Menu404_Click : Menu401_Click)();
}

// The state as it was when the recorded game began: the same leftovers of the title.
void GameStarted(std::uint64_t) {
    MainForm.Menu008.Checked = played.joystick;
    game.JoyUse = played.joystick ? True : False;
    game.JoyId = played.joyId;
    game.JoyCenterX = played.joyCenterX;
    game.JoyCenterY = played.joyCenterY;
    game.ScrollY = static_cast<Integer>(played.scroll);
    game.HiScore = played.hiScore;
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

void FrameDone() {
    if (result.state != ReplayState::playing) return;
    const auto index = static_cast<std::size_t>(now.frame);
    ++now.frame;
    now.yield = 0;
    idleYields = 0;
    result.frame = now.frame;
    if (index >= played.frames.size()) return Differ("the game goes on after the recording's last frame");
    const FrameDigest digest = DigestFrame(game);
    if (digest != played.frames[index]) Differ(DescribeDifference(digest, played.frames[index]));
}

void GameEnded() {
    if (result.state != ReplayState::playing) return;
    if (result.frame < static_cast<int>(played.frames.size())) {
        result.state = ReplayState::differs;
        result.message = "the game ends before the recording's last frame, " + std::to_string(played.frames.size());
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
    return played.endDigest == 0 && now.frame >= static_cast<int>(played.frames.size()) && !EventsAreLeft();
}

// The staff roll has yields but no frames. One that goes on and on after the frame's last event would wait for its key
// for ever.
bool GoneAstray() {
    constexpr int kLongestRoll = 2000;  // yields; the roll takes its key from 1330 on
    return !(EventsAreLeft() && played.events[nextEvent].time.frame <= now.frame) && ++idleYields > kLongestRoll;
}

void FeedRecorded(std::vector<InputEvent>& events) {
    while (EventsAreLeft() && played.events[nextEvent].time <= now) {
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
    SetOptions(played);
    FixSeed(played.seed);
    SetEventTap(Tap);
    gameWatcher = {GameStarted, FrameDone, GameEnded};
}

void StopReplay() {
    result = {};
    UseClockSeed();
    SetEventTap(nullptr);
    gameWatcher = {};
}

const ReplayResult& Replay() {
    return result;
}
