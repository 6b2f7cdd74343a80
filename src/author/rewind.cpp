#include "author/rewind.h"

#include <algorithm>
#include <array>
#include <deque>
#include <iterator>
#include <memory>
#include <set>

#include "shell/game_loop.h"
#include "stage/load_stage.h"
#include "stage/stage_script.h"
#include "state/main_form.h"
#include "state/state.h"
#include "toolkit/input_state.h"

namespace {

constexpr int kInterval = 32;  // frames
constexpr std::size_t kKept = 9;

// What play changes of the pictures; everything else on them is the same in every game.
constexpr std::array kPictures = {&MainFormType::B_Crt, &MainFormType::EnemyPic, &MainFormType::BossPic,
                                  &MainFormType::BomPic128, &MainFormType::MyPowerPic};

using Events = std::vector<InputEvent>;

struct Moment {
    GameState state;
    std::array<Surface, kPictures.size()> pictures;
    std::vector<HeldKey> keys;
    std::size_t yield;  // the first one after it
};

struct Past {
    std::deque<std::unique_ptr<Moment>> moments;
    std::vector<Events> yields;  // of the game, the keys only
    std::set<int> down;          // keys that are really down
    int frames = 0;
    bool asked = false;
    bool playing = false;  // the past is fed to the game
    std::size_t next = 0;  // the yield that comes next
};
Past past;

bool IsKeyNews(const InputEvent& event) {
    using Kind = InputEvent::Kind;
    return event.kind == Kind::keyDown || event.kind == Kind::keyUp || event.kind == Kind::allKeysUp;
}

void Follow(const InputEvent& event) {
    if (event.kind == InputEvent::Kind::keyDown) past.down.insert(event.code);
    if (event.kind == InputEvent::Kind::keyUp) past.down.erase(event.code);
    if (event.kind == InputEvent::Kind::allKeysUp) past.down.clear();
}

void Keep() {
    auto moment = std::make_unique<Moment>(Moment{game, {}, HeldKeys(), past.next});
    for (std::size_t i = 0; i < kPictures.size(); ++i) moment->pictures[i] = MainForm.*kPictures[i];
    past.moments.push_back(std::move(moment));
    if (past.moments.size() > kKept) past.moments.pop_front();
}

// The table as it is now, with the repeats counted as they were then.
void TakeTables(GameState& state) {
    std::ranges::copy(game.EnemyData, std::begin(state.EnemyData));
    for (int p = 0; p < kMovePatterns; ++p) std::ranges::copy(game.EneMove[p], std::begin(state.EneMove[p]));
    if (state.StageNo != game.StageNo) return;
    for (int i = 0; i < kStageEntries; ++i) {
        StageDataType now = game.StageData[i];
        if (now.No == kRepeat && state.StageData[i].No == kRepeat) now.Y = state.StageData[i].Y;
        state.StageData[i] = now;
    }
}

void PutBackTo(const Moment& moment) {
    GameState state = moment.state;
    const bool otherStage = state.StageNo != game.StageNo;
    TakeTables(state);
    for (auto time : {&GameState::FrameStart, &GameState::FrameEnd, &GameState::Fps, &GameState::FpsNext}) {
        state.*time = game.*time;
    }
    game = state;
    for (std::size_t i = 0; i < kPictures.size(); ++i) MainForm.*kPictures[i] = moment.pictures[i];
    const Play* stage = FindStage(game.StageNo);
    if (otherStage && stage && tableRead) tableRead(*stage);
    ApplyInput({InputEvent::Kind::allKeysUp});
    for (const HeldKey& key : moment.keys) HoldKey(key);
}

void GoBack() {
    past.asked = false;
    if (gameWatcher.Disturbed) gameWatcher.Disturbed();
    const auto moment = std::move(past.moments.front());
    PutBackTo(*moment);
    past.moments.clear();
    past.next = moment->yield;
    past.frames = 0;
    past.playing = true;
    Keep();
}

// Back to the keys that were really down before these events.
void EndPast(Events& events, const std::set<int>& down) {
    past.playing = false;
    past.yields.resize(past.next);
    Events now = {{InputEvent::Kind::allKeysUp}};
    for (const int code : down) now.push_back({InputEvent::Kind::keyDown, code});
    events.insert(events.begin(), now.begin(), now.end());
}

}  // namespace

void GameBegins() {
    past.frames = 0;
    past.playing = false;
    if (past.asked) return;
    past.moments.clear();
    past.yields.clear();
    past.next = 0;
}

void KeepMoment() {
    if (past.asked && !past.moments.empty()) return GoBack();
    if (past.frames++ % kInterval == 0) Keep();
}

bool AskForMoment() {
    past.asked = !past.moments.empty();
    return past.asked;
}

void TakeMomentsEvents(Events& events) {
    const bool pressed = std::ranges::any_of(events, [](const auto& e) { return e.kind == InputEvent::Kind::keyDown; });
    const std::set<int> down = past.down;
    for (const InputEvent& event : events) Follow(event);
    if (past.playing && (pressed || past.next >= past.yields.size())) EndPast(events, down);
    if (past.playing) {
        std::erase_if(events, IsKeyNews);
        events.insert(events.end(), past.yields[past.next].begin(), past.yields[past.next].end());
    } else {
        past.yields.emplace_back();
        std::ranges::copy_if(events, std::back_inserter(past.yields.back()), IsKeyNews);
    }
    ++past.next;
}
