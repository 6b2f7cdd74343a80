// The player's runs: the files of the folder "Runs" in the program's folder. Every game becomes one; what is not worth
// keeping goes again.
#pragma once

#include <string>
#include <vector>

#include "recording/run.h"

// Always kept: so many newest runs, the best one of each play and difficulty, those that the player has marked, and
// whatever is damaged.
inline constexpr std::size_t kNewestRuns = 50;

std::string RunsFolder();

struct KeptRun {
    std::string path;
    Run run;              // without its events
    std::string problem;  // not empty: the file is damaged
};
// All runs, the newest first; damaged ones last.
std::vector<KeptRun> ListRuns();

// Whether the run may be a best one: played from the start of its play by whoever, not invincible, not taken over.
bool CountsAsBest(const Recording& recording);

// Writes the run as a new file and throws away what is not kept any longer. Empty when done, else why not.
std::string KeepRun(const Run& run);

// Writes the run anew into its file: another name, kept or not.
std::string ChangeRun(const std::string& path, const std::string& name, bool kept);

// Takes the run out of the list, until BringBack or the next start of the program. Empty when done, else why not.
std::string PutAside(const std::string& path);
std::string BringBack(const std::string& path);

// What a game that is going on leaves behind if the program dies: bit by bit, in the journal.
class RunJournal {
  public:
    // Begins with the head of the recording. Nothing is written, here or later, when the folder cannot be.
    void Begin(const Recording& head);
    // Adds what is new in the recording since the last time.
    void Add(const Recording& sofar);
    void End();

  private:
    std::size_t events_ = 0;
    std::size_t checks_ = 0;
};

// At the start of the program: makes runs of the journals that dead programs have left, and removes what was put aside.
void RescueRuns();
