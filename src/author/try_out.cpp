#include "author/try_out.h"

#include <algorithm>
#include <utility>

#include "author/rewind.h"
#include "platform/events.h"
#include "shell/best_scores.h"
#include "shell/game_loop.h"
#include "stage/load_stage.h"
#include "stage/plays.h"
#include "state/main_form.h"
#include "state/options.h"
#include "state/random.h"
#include "toolkit/numbers.h"

namespace {

// What a trial changes of the program, to be put back.
struct Usual {
    int play;
    Integer level;
    bool invincible;
    bool keepBestScores;
    std::optional<std::uint64_t> seed;
};

struct Trials {
    TryOutWatch watch;
    GameWatcher below;            // who watched before
    EventTap belowTap = nullptr;  // and saw the events
    TryOut last;
    bool asked = false;          // `last` is to be played
    std::optional<Usual> usual;  // from a trial's start until the title is back
    bool running = false;
};
Trials trials;

Integer CheckedLevel() {
    for (const Difficulty& difficulty : kDifficulties) {
        if ((MainForm.*difficulty.item).Checked) return difficulty.level;
    }
    return kNomal;
}

// The menus are switched off while a game runs; a trial may follow it at once.
void Click(MenuItem MainFormType::*item) {
    if ((MainForm.*item).Click) (MainForm.*item).Click();
}
void ChoosePlayAndLevel(int play, Integer level) {
    for (const Play& row : kPlays) {
        if (row.number == play) Click(row.item);
    }
    for (const Difficulty& row : kDifficulties) {
        if (row.level == level) Click(row.item);
    }
}

bool InGame() {
    return !MainForm.MENU100.Enabled;
}

void Prepare() {
    trials.asked = false;
    const TryOut& tryOut = trials.last;
    trials.usual = {game.DigestMode, CheckedLevel(), MainForm.Menu003.Checked, keepBestScores, FixedSeed()};
    ChoosePlayAndLevel(kPlays[tryOut.table].number, tryOut.level);
    MainForm.Menu003.Checked = tryOut.invincible;
    keepBestScores = false;
    if (tryOut.seed) FixSeed(*tryOut.seed);
    gameStart = {tryOut.entry, tryOut.energy, tryOut.shotMode};
}

void PutBack() {
    const Usual& usual = *trials.usual;
    ChoosePlayAndLevel(usual.play, usual.level);
    MainForm.Menu003.Checked = usual.invincible;
    keepBestScores = usual.keepBestScores;
    usual.seed ? FixSeed(*usual.seed) : UseClockSeed();
    gameStart = {};
    trials.usual.reset();
}

// Only at the title: until then the game that was left has its own play and best score.
void Yield(std::vector<InputEvent>& events) {
    if (InGame()) {
        TakeMomentsEvents(events);
    } else {
        if (trials.usual) PutBack();
        if (trials.asked) Prepare();
    }
    if (trials.belowTap) trials.belowTap(events);
}

void GameStarted(std::uint64_t seed) {
    trials.running = trials.usual.has_value();
    GameBegins();
    if (trials.below.Started) trials.below.Started(seed);
}

void FrameDone() {
    if (trials.below.FrameDone) trials.below.FrameDone();
    KeepMoment();
}

void GameEnded() {
    if (trials.below.Ended) trials.below.Ended();
    if (std::exchange(trials.running, false) && trials.watch.ended && !gameAsked) trials.watch.ended();
}

void Disturbed() {
    if (trials.below.Disturbed) trials.below.Disturbed();
}

void TableRead(const Play& play) {
    const auto table = &play - kPlays;
    if (trials.watch.tableLoaded) trials.watch.tableLoaded(static_cast<int>(table));
}

}  // namespace

std::string ReadPlace(const std::string& text, TryOut& place) {
    const auto colon = text.find(':');
    const auto* play = std::ranges::find(kPlays, text.substr(0, colon), &Play::name);
    if (play == std::end(kPlays)) return "\"" + text.substr(0, colon) + "\" is no stage";
    const auto number = colon == std::string::npos ? std::nullopt : NumberOf(text.substr(colon + 1));
    const auto entry = number ? WholeOf<int>(*number) : std::nullopt;
    if (!entry || *entry < 0 || *entry >= kStageEntries) return "an entry from 0 to 512 is wanted behind the colon";
    place.table = static_cast<int>(play - kPlays);
    place.entry = *entry;
    return {};
}

void StartTryOut(const TryOut& tryOut) {
    trials.last = tryOut;
    trials.asked = gameAsked = true;
}

bool PlayAgain() {
    if (!AskForMoment()) return false;
    if (!InGame()) StartTryOut(trials.last);
    return true;
}

void WatchTryOuts(TryOutWatch watch) {
    trials = {};
    trials.watch = std::move(watch);
    trials.below = gameWatcher;
    trials.belowTap = GetEventTap();
    gameWatcher = {GameStarted, FrameDone, GameEnded, Disturbed};
    SetEventTap(Yield);
    tableRead = TableRead;
}
