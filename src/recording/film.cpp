#include "recording/film.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <span>
#include <utility>

#include "combat/fire_patterns.h"
#include "host/window.h"
#include "platform/events.h"
#include "platform/music.h"
#include "platform/unseen.h"
#include "recording/released_tables.h"
#include "shell/best_scores.h"
#include "state/main_form.h"
#include "state/random.h"

namespace {

Film* film = nullptr;
void (*replayFrameDone)() = nullptr;
EventTap innerTap = nullptr;  // the replay's, or the recorder's
std::vector<InputEvent> firstEvents;
const std::function<bool()>* giveUp = nullptr;

struct Interrupted {};

// Play goes on unseen for as long as this lives.
class Unseen {
  public:
    Unseen() {
        unseen = true;
        MainForm.Crt.Visible = false;
    }
    ~Unseen() {
        unseen = false;
        MainForm.Crt.Visible = true;
        if (MainForm.Crt.image.empty()) RemovePicture(MainForm.Crt);
    }
    Unseen(const Unseen&) = delete;
    Unseen& operator=(const Unseen&) = delete;
};

// Without an image nothing is composed, which is most of a frame's work.
void DropPicture() {
    MainForm.Crt.image.clear();
    MainForm.Crt.imageWidth = MainForm.Crt.imageHeight = 0;
}

void SetInput(const std::vector<HeldKey>& held, const std::vector<InputEvent>& sticks) {
    ResetInputState();
    for (const InputEvent& stick : sticks) ApplyInput(stick);
    for (const HeldKey& key : held) HoldKey(key);
}

// Those whose pictures play changes.
constexpr Surface MainFormType::*kChanging[] = {&MainFormType::B_Crt, &MainFormType::EnemyPic, &MainFormType::BossPic,
                                                &MainFormType::BomPic128, &MainFormType::MyPowerPic};
using Surfaces = std::array<std::shared_ptr<const Surface>, std::size(kChanging)>;

bool SamePicture(const Surface& a, const Surface& b) {
    return a.imageWidth == b.imageWidth && a.imageHeight == b.imageHeight && a.Width == b.Width &&
           a.Height == b.Height && a.BackColor == b.BackColor && a.HasPicture == b.HasPicture && a.image == b.image;
}

bool BossIsThere() {
    return std::ranges::any_of(game.Enemy,
                               [](const EnemyType& enemy) { return enemy.State == 1 && enemy.Kind >= kFirstBoss; });
}

// The keys of the game that is taken over come up, those of the player go down, its joystick comes to rest.
std::vector<InputEvent> ChangeOfHands(const std::vector<int>& down) {
    std::vector<InputEvent> events;
    std::set<int> wanted(down.begin(), down.end());
    for (const HeldKey& key : HeldKeys()) {
        if (key.down && wanted.erase(key.code) == 0) events.push_back({InputEvent::Kind::keyUp, key.code});
    }
    for (const int code : wanted) events.push_back({InputEvent::Kind::keyDown, code});
    if (game.JoyUse != False) {
        events.push_back({InputEvent::Kind::joystick, game.JoyId, static_cast<std::uint32_t>(game.JoyCenterX),
                          static_cast<std::uint32_t>(game.JoyCenterY), 0});
    }
    return events;
}

}  // namespace

// The program as it was.
class Film::Aside {
  public:
    Aside() : state(game) {}
    ~Aside() {
        StopReplay();
        UseOwnTables();
        pace = 1;
        unheard = false;
        game = std::move(state);
        MainForm = std::move(form_);
        gameWatcher = watcher_;
        SetEventTap(tap_);
        keepBestScores = keepBestScores_;
        gameStart = start_;
        if (seed_) FixSeed(*seed_);
        SetInput(held_, sticks_);
        SetMusic(music_);
    }
    Aside(const Aside&) = delete;
    Aside& operator=(const Aside&) = delete;

    GameState state;

  private:
    MainFormType form_ = MainForm;
    GameWatcher watcher_ = gameWatcher;
    EventTap tap_ = GetEventTap();
    bool keepBestScores_ = keepBestScores;
    GameStart start_ = gameStart;
    std::optional<std::uint64_t> seed_ = FixedSeed();
    std::vector<HeldKey> held_ = HeldKeys();
    std::vector<InputEvent> sticks_ = JoystickReadings();
    MusicNow music_ = TheMusic();
};

// All that a game needs to go on from between two frames. The waves are left out: they never change.
struct Film::Moment {
    GameState state;
    Surfaces surfaces;
    OptionMarks options;
    std::vector<HeldKey> held;
    std::vector<InputEvent> sticks;
    ReplayPlace place;
    MusicNow music;
};

Film::Film(const Recording& recording) : recording_(recording), before_(std::make_unique<Aside>()) {
    game = {};
    game.ScreenW = before_->state.ScreenW;
    game.ScreenH = before_->state.ScreenH;
    std::ranges::copy(before_->state.JoyButtonMask, game.JoyButtonMask);
    static_cast<void>(UseTables(recording_.dataDigest));
    BecomeFilm();
    MainForm.MENU100.Enabled = MainForm.Menu400.Enabled = false;  // as while a game runs
    SetMusic({});
    const Unseen whileScouting;
    film = this;
    SetUpGame();
    Scout();
    GoTo(*moments_.front());
}

Film::~Film() {
    film = nullptr;
}

void Film::BecomeFilm() {
    StartReplay(recording_);
    replayFrameDone = gameWatcher.FrameDone;
    gameWatcher.FrameDone = FrameDone;
    innerTap = GetEventTap();
    SetEventTap(Tap);
}

void Film::FrameDone() {
    replayFrameDone();
    film->See();
}

void Film::Tap(std::vector<InputEvent>& events) {
    if (!unseen && film->interrupt && film->interrupt()) throw Interrupted{};
    innerTap(events);
}

int Film::Frame() const {
    return PlaceOfReplay().now.frame;
}

// Once for each frame, the first time that it is played.
void Film::See() {
    if (Replay().state == ReplayState::differs && track_.problem.empty())
        track_.problem = "frame " + std::to_string(Frame()) + ": " + Replay().message;
    if (Frame() <= Frames()) return;
    static FilmFrame last{};
    static Integer lastStage = 0;
    static Single lastPower = 0;
    static bool lastBoss = false;
    const int frame = Frame();
    const auto mark = [&](FilmMark::Kind kind) { track_.marks.push_back({kind, frame}); };
    if (frame > 1 && game.MyPower < lastPower) mark(FilmMark::Kind::hit);
    if (BossIsThere() && !lastBoss) mark(FilmMark::Kind::boss);
    if (frame > 1 && game.StageNo != lastStage) mark(FilmMark::Kind::stage);
    if (game.MyDead != False && !last.dead) mark(FilmMark::Kind::death);
    last = {game.MyX, game.MyY, game.MyShipFrame, game.MyDead != False, game.ShotMode != 0, game.Score};
    lastStage = game.StageNo, lastPower = game.MyPower, lastBoss = BossIsThere();
    track_.frames.push_back(last);
    if (frame % kCheckInterval == 0) checks_.push_back(DigestState(game));
}

// Bounded: a game that goes on and on is kept at moments farther apart.
void Film::Keep() {
    constexpr std::size_t kMostMoments = 256;  // of 180 kB
    auto moment = std::make_unique<Moment>(
        Moment{game, {}, CurrentOptions(), HeldKeys(), JoystickReadings(), PlaceOfReplay(), TheMusic()});
    moment->state.Wave1Data = moment->state.Wave2Data = {};
    for (std::size_t i = 0; i < std::size(kChanging); ++i) {
        const Surface& now = MainForm.*kChanging[i];
        const auto before = moments_.empty() ? nullptr : moments_.back()->surfaces[i];
        moment->surfaces[i] = before && SamePicture(*before, now) ? before : std::make_shared<Surface>(now);
    }
    moments_.push_back(std::move(moment));
    if (moments_.size() < kMostMoments) return;
    interval_ *= 2;
    std::erase_if(moments_, [this](const auto& kept) { return kept->place.now.frame % interval_ != 0; });
}

void Film::Scout() {
    Keep();
    while (!ended_) {
        DropPicture();
        Play();
        if (!ended_ && Frame() % interval_ == 0) Keep();
    }
}

void Film::GoTo(const Moment& moment) {
    std::vector<Byte> wave1 = std::move(game.Wave1Data), wave2 = std::move(game.Wave2Data);
    game = moment.state;
    game.Wave1Data = std::move(wave1), game.Wave2Data = std::move(wave2);
    for (std::size_t i = 0; i < std::size(kChanging); ++i) MainForm.*kChanging[i] = *moment.surfaces[i];
    SetOptions(moment.options);
    SetInput(moment.held, moment.sticks);
    SetPlaceOfReplay(moment.place);
    SetMusic(moment.music);
    ended_ = false;
}

void Film::Play() {
    MainForm.Menu002.Checked = true;  // paced, whatever the player of the game did
    try {
        ended_ = !PlayFrame();
        if (ended_) gameWatcher.Ended();
    } catch (const Interrupted&) {
        ended_ = true;
    } catch (const EndProgram&) {
        const ReplayState state = Replay().state;
        if (state != ReplayState::finished && state != ReplayState::differs) throw;
        ended_ = true;
    }
}

void Film::Step() {
    if (!ended_) Play();
}

const Film::Moment& Film::LastMomentBefore(int frame) const {
    const auto after = std::ranges::find_if(moments_, [frame](const auto& m) { return m->place.now.frame >= frame; });
    return after == moments_.begin() ? **after : **std::prev(after);
}

void Film::JumpTo(int frame) {
    const int target = std::clamp(frame, 0, Frames());
    const Long fps = game.Fps;  // the clock's figure says nothing on the way
    {
        const Unseen onTheWay;
        const Moment& moment = LastMomentBefore(target);
        const bool goOn = !ended_ && Frame() < target && moment.place.now.frame <= Frame();
        if (!goOn) GoTo(moment);
        while (Frame() < target && !ended_) {
            DropPicture();
            game.Fps = fps, game.FrameTime = 0;
            if (Frame() + 1 == target) RemovePicture(MainForm.Crt);
            Play();
        }
    }
    SetMusic(TheMusic());
}

Recording Film::SoFar() const {
    Recording sofar = recording_;
    const ReplayPlace place = PlaceOfReplay();
    const auto frame = static_cast<std::size_t>(place.now.frame);
    sofar.parent = Parent{RunIdentity(recording_), place.now.frame};
    sofar.pilot.clear();
    sofar.frames.clear();
    sofar.events.resize(place.nextEvent);
    sofar.checks.assign(checks_.begin(), checks_.begin() + static_cast<std::ptrdiff_t>(frame / kCheckInterval));
    const auto played = std::span(track_.frames).first(frame);
    sofar.result = {Outcome::unknown, game.StageNo,
                    static_cast<int>(std::ranges::count(played, true, &FilmFrame::spread))};
    sofar.endFrames = place.now.frame;
    sofar.endScore = game.Score;
    sofar.endEnergy = game.MyPower;
    sofar.endDigest = 0;
    return sofar;
}

Try Film::PlayOn(const std::function<bool()>& givenUp) {
    static int hits = 0;
    hits = 0;
    const int start = FramesRecorded();
    const Long score = game.Score;
    giveUp = &givenUp;
    innerTap = GetEventTap();
    SetEventTap([](std::vector<InputEvent>& events) {
        if ((*giveUp)()) throw Interrupted{};
        events.insert(events.begin(), firstEvents.begin(), firstEvents.end());
        firstEvents.clear();
        innerTap(events);
    });
    shotWatcher.Hit = [](int) { ++hits; };
    Try result;
    try {
        while (PlayFrame()) {
        }
        result.over = true;
        gameWatcher.Ended();
    } catch (const Interrupted&) {
        DropRecording();
    } catch (const EndProgram&) {
        gameWatcher.Disturbed();  // what was played is kept
        shotWatcher.Hit = nullptr;
        throw;
    }
    shotWatcher.Hit = nullptr;
    result.frames = FramesRecorded() - start, result.score = game.Score - score, result.hits = hits;
    return result;
}

Try Film::TakeOver(const std::vector<int>& down, const std::function<bool()>& givenUp) {
    const int frame = Frame();
    const EventTime now = PlaceOfReplay().now;
    const Recording sofar = SoFar();
    firstEvents = ChangeOfHands(down);
    StopReplay();
    keepBestScores = false;
    MainForm.Menu002.Checked = true;
    ContinueRecorder(sofar, now);
    const Try result = PlayOn(givenUp);
    BecomeFilm();
    ended_ = true;
    JumpTo(frame);
    return result;
}

FilmTrack TrackOf(const Recording& recording) {
    return Film(recording).Track();
}
