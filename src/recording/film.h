// A recorded game as a film: played on from any of its moments, and taken over from there. For as long as a Film lives,
// the program's state, window and watchers are the film's; what was there before stands aside and comes back with its
// end. One at a time, and only within a yield of the title or before it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "recording/recording.h"

// What a frame shows of the player.
struct FilmFrame {
    Integer x, y;    // of the ship
    Byte shipFrame;  // its picture
    bool dead;
    bool spread;  // the spread shot is chosen
    Long score;
};

struct FilmMark {
    enum class Kind { hit, boss, stage, death };
    Kind kind;
    int frame;
};

struct FilmTrack {
    std::vector<FilmFrame> frames;  // frames[0] after the first one
    std::vector<FilmMark> marks;
    std::string problem;  // where the game differs from its recording; empty: nowhere
};

// What came of a game that was taken over, from there on.
struct Try {
    int frames = 0;
    Long score = 0;
    int hits = 0;
    bool over = false;  // it came to its end, and is kept; else it was given up
};

class Film {
  public:
    // Plays the whole game unseen, on its own tables where they are known, keeps its moments and stands before the
    // first frame. Takes a second for half an hour of play.
    explicit Film(const Recording& recording);
    ~Film();
    Film(const Film&) = delete;
    Film& operator=(const Film&) = delete;

    const FilmTrack& Track() const { return track_; }
    int Frames() const { return static_cast<int>(track_.frames.size()); }
    // Frames played: 0 .. Frames().
    int Frame() const;
    // The game is over; only JumpTo goes on.
    bool Ended() const { return ended_; }

    // Plays one frame, the last time up to the end of the game. Throws EndProgram when the player leaves the program.
    void Step();
    // Asked at every yield of Step, of which the staff roll has many: true leaves it at once, and JumpTo must follow.
    std::function<bool()> interrupt;

    // Stands after `frame` frames (kept within the film), with their picture composed; nothing is shown or heard on the
    // way.
    void JumpTo(int frame);

    // From here on the player plays, with the keys `down` as he holds them, until the game is over or `givenUp`, asked
    // at every yield, is true. A game that came to its end is kept as a run. Then the film stands here again.
    Try TakeOver(const std::vector<int>& down, const std::function<bool()>& givenUp);

  private:
    class Aside;
    struct Moment;

    void BecomeFilm();
    void Play();
    void Scout();
    void See();
    void Keep();
    void GoTo(const Moment& moment);
    const Moment& LastMomentBefore(int frame) const;
    Recording SoFar() const;
    Try PlayOn(const std::function<bool()>& givenUp);

    static void FrameDone();
    static void Tap(std::vector<InputEvent>& events);

    Recording recording_;
    std::unique_ptr<Aside> before_;
    std::vector<std::unique_ptr<Moment>> moments_;
    int interval_ = kCheckInterval;
    FilmTrack track_;
    std::vector<std::uint64_t> checks_;
    bool ended_ = false;
};

// Of a game that is not to be watched. Under the conditions of a Film.
FilmTrack TrackOf(const Recording& recording);
