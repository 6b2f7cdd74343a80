// What the sound device was given to play, written to a file by SDL's disk driver, and what a listener hears in it. The
// device's clock is the tape: it runs faster than the wall clock, so tests count in seconds of the tape.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class Tape {
  public:
    // Points SDL at a disk device that writes to `path`, `speed` times as fast as a real one.
    Tape(std::string path, double speed);
    ~Tape();
    Tape(const Tape&) = delete;
    Tape& operator=(const Tape&) = delete;

    // The length so far.
    double Now() const;

    // Lets it run for so long; `everyMoment` runs some hundred times a second. Fails the test when the device has died.
    void Run(double seconds, const std::function<void()>& everyMoment = {}) const;

    // Lets it run until a note sounds, at most 10 s. Its place on the tape.
    double RunUntilHeard() const;

    // What is heard from..to (default: to the end):
    double Loudness(double from, double to) const;                // 0..1, root of the mean square
    double Strength(double hertz, double from, double to) const;  // 0..1, the level of that one tone
    int Peak(double from) const;                                  // largest sample
    std::vector<struct HeardNote> Notes(double from) const;       // in turn; key 0 is silence

  private:
    std::vector<float> Samples(double from, double to) const;
    std::string path_;
};

// A stretch of one pitch. Places are exact to about 30 ms.
struct HeardNote {
    int key;
    double start;
    double seconds;
};

// The keys alone, without the silences.
std::vector<int> Keys(const std::vector<HeardNote>& notes);
