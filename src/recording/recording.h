// Recorded games: a readable text file from which a game can be played again exactly. It holds the seed, the options,
// a fingerprint of the data tables, every event with its place in time, and a fingerprint of every frame.
//
//   tarnveil-recording 1
//   program 1.0                that recorded it; none: before programs said so
//   rules 1                    of play it was recorded under; none: 1
//   parent 0123456789abcdef 512    end digest of the run it was taken over from, and after so many frames; else none
//   seed 7
//   level 2                    of kDifficulties
//   play 0                     of kPlays
//   from 40 7.5 1              entry, energy, shot mode; only of a game that an author has started within a stage
//   pilot dodge forward game   what the simulator was asked for; only of games that no person has played
//   options Wait=1 BGM=1       words of kOptions in any order; one that is absent is as at start
//   joystick 0 32767 32767     JoyId, JoyCenterX, JoyCenterY; only with Joystick=1
//   scroll 120                 ScrollY at the start
//   hiscore 0                  HiScore at the start
//   data 0123456789abcdef
//   left 12:3f800000 40:2      what earlier games have left in the state (digest.h): field, bits
//   held 38 1 0                key, down, pressed since: keys held as the game begins
//   stick 0 32767 0 1          joystick, x, y, buttons as the game begins
//   event FRAME YIELD key-down 88    FRAME may be +N: so many frames after the event before
//   check 256 0123456789abcdef       digest of the whole state after each kCheckInterval-th frame; none, or all
//   frame FIRST digest digest ...    none, or all frames
//   result won 3 250           how it ended, the last stage, frames with the spread shot; none: not said
//   end frames=1234 score=560 energy=7 digest=0123456789abcdef
//
// A digest of 0 in the end line marks a game that was cut off: the program was left, or an editor opened.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/events.h"
#include "recording/digest.h"
#include "shell/game_loop.h"
#include "state/options.h"
#include "toolkit/input_state.h"

// The rules of play, raised when a recorded game (tests/runs) no longer plays as it did.
inline constexpr int kRulesVersion = 1;

inline constexpr int kCheckInterval = 256;  // frames

// How a game ended. `left`: by the player.
enum class Outcome { unknown, won, lost, left, cutOff, count };
const char* OutcomeName(Outcome outcome);

struct RunResult {
    Outcome how = Outcome::unknown;
    int stage = 0;   // StageNo in the last frame
    int spread = 0;  // frames with the spread shot

    bool operator==(const RunResult&) const = default;
};

// The run that a run was taken over from, and where.
struct Parent {
    std::uint64_t digest = 0;  // at its end; or of what identifies it, when it was cut off (RunIdentity)
    int frame = 0;

    bool operator==(const Parent&) const = default;
};

// When an event is taken: after so many frames, at the so-manieth yield since then.
struct EventTime {
    int frame = 0;
    int yield = 0;

    auto operator<=>(const EventTime&) const = default;
};

struct RecordedEvent {
    EventTime time;
    InputEvent event;

    bool operator==(const RecordedEvent&) const = default;
};

struct Recording {
    std::string program;
    int rules = kRulesVersion;
    std::optional<Parent> parent;
    std::uint64_t seed = 0;
    int level = kNomal;
    int play = 0;
    GameStart start;
    std::string pilot;
    OptionMarks options;
    int joyId = 0;
    int joyCenterX = 0;
    int joyCenterY = 0;
    int scroll = 0;
    int hiScore = 0;
    std::uint64_t dataDigest = 0;
    std::vector<LeftField> left;
    std::vector<HeldKey> held;
    std::vector<InputEvent> sticks;
    std::vector<RecordedEvent> events;
    std::vector<FrameDigest> frames;    // frames[0] is the first one; empty: only the end is known
    std::vector<std::uint64_t> checks;  // checks[0] after kCheckInterval frames; empty: none
    RunResult result;
    int endFrames = 0;  // frames played
    int endScore = 0;
    float endEnergy = 0;
    std::uint64_t endDigest = 0;  // 0: cut off

    bool operator==(const Recording&) const = default;
};

// How the frames of events are written: as they are, or as those since the last event, which packs better.
enum class EventFrames { counted, sinceLast };

std::string FormatRecording(const Recording& recording, EventFrames frames = EventFrames::counted);

// The event as its line has it, behind the time: "key-down 88".
std::string FormatEvent(const InputEvent& event);

// A part of the text: what stands before the events, and one event's line.
std::string FormatHeader(const Recording& recording);
std::string FormatEventLine(const RecordedEvent& event);
std::string FormatCheckLine(int frame, std::uint64_t digest);
// The last line, and that of the result before it.
std::string FormatEnd(const Recording& recording);

// Empty when done, else what is wrong, with the line number.
std::string ParseRecording(std::string_view text, Recording& recording);
// From a file (a recording, or a run: run.h), or from a link to a game (link.h).
std::string ReadRecording(const std::string& path, Recording& recording);

// How the game that has just been left has ended: by its last event, and the state it leaves.
Outcome OutcomeOf(const Recording& recording, const GameState& state);

// A number by which other runs call this one: its end digest, or a fingerprint of its events when it was cut off.
std::uint64_t RunIdentity(const Recording& recording);

// Whether the event ends the program: such events are not part of a recording.
bool LeavesProgram(const InputEvent& event);

// Records the first game from here on into `path`, written when the game or the program ends; as a run (run.h) when the
// path ends so. Opening an editor ends
// the recording there: what it changes in the tables is not an event.
void StartRecorder(const std::string& path, const std::string& pilot = {});

// Every game from here on becomes a run of the player's (keeper.h), beside a recording that StartRecorder may have
// asked for.
void StartKeepingRuns();

// Goes on recording a game that has come to `now` by the events of `sofar`; it becomes a run of the player's.
void ContinueRecorder(const Recording& sofar, EventTime now);
// Forgets the game that is being recorded.
void DropRecording();
// Frames of the game that is being recorded, or was the last one.
int FramesRecorded();

// Stops recording; a game that is still going on is written as far as it has come. Empty, or why the recording could
// not be written.
std::string FinishRecorder();

enum class ReplayState { none, waiting, playing, finished, differs };

struct ReplayResult {
    ReplayState state = ReplayState::none;
    int frame = 0;                    // frames played; where it differs: the first such frame
    std::string message{};            // where it differs: the groups and their values
    std::optional<EventTime> late{};  // of an event whose moment the game did not have
};

// Sets options, seed and watchers so that the next game plays `recording`: at the title it starts by itself, and the
// program ends after it, or where the recording was cut off. Only closing the window and quitting get through to the
// game.
void StartReplay(const Recording& recording);
void StopReplay();
const ReplayResult& Replay();

// Where a replay is, to come back there with a state that was kept (film.h).
struct ReplayPlace {
    EventTime now;
    std::size_t nextEvent = 0;
    int idleYields = 0;  // since the last frame or event
};
ReplayPlace PlaceOfReplay();
// Also when it had come to its end.
void SetPlaceOfReplay(const ReplayPlace& place);
