// The author's bench without its window: the six tables as the author has them, every action on them with its way back,
// and what is not saved yet. The window shows this and calls it; so does a test. Called between two frames only.
//
// The bench's tables are those the game plays with: what an action changes is put into `game` at once. An appearance
// table that is not in memory waits here until the game reads it.
#pragma once

#include <string>
#include <vector>

#include "author/table_change.h"

struct BenchAction {
    std::string label;  // "entry 40: X 120 → 160"
    std::vector<TableChange> changes;
};

class Bench {
  public:
    // Reads the six tables of the program's folder. Empty, or which file is missing or short and why; then nothing has
    // changed. Forgets the history.
    std::string Open();

    const Tables& Working() const { return working_; }

    // Replaces the tables by `next` as one action. Without a label it is named after its first change. Nothing happens
    // when nothing differs. What was taken back and not done again is forgotten.
    void Act(const Tables& next, std::string label = "");

    // Grows with everything that changes the tables: who shows them compares.
    int Changes() const { return changes_; }

    // Takes over as one action what the three editor windows have stored in `game` since the last call. Called whenever
    // time has passed. The count of a repeat entry is left out: play itself changes it.
    void Observe();

    // Actions in force come first in the history, those taken back after them.
    const std::vector<BenchAction>& History() const { return history_; }
    std::size_t Done() const { return done_; }
    void GoBack();     // nothing happens at the beginning
    void GoForward();  // nothing happens at the end

    // The game has this appearance table (as in kPlays) in memory from here on, read from its file
    // together with kinds and patterns. What is unsaved in them is put over it. -1: none yet.
    void TableLoaded(int table);
    int Loaded() const { return loaded_; }

    // The same for a game that has read that table before the bench was there (-1: none has): what is in memory stays,
    // and what differs from the files becomes an action at the next Observe.
    void Adopt(int table);

    // The tables' files whose content is not that of the bench, by name.
    std::vector<std::string> Unsaved() const;

    // Writes those files; what they held is kept beside them as NAME.bak. Empty, or the first file that could not be
    // written and why: it and those after it are as they were.
    std::string Save();

    // Files that others have changed since they were read or saved here, by name; those that cannot be read are left
    // out. What an editor window has saved is what the bench has too, and counts as saved.
    std::vector<std::string> ChangedOnDisk();

    // Takes the content of those files as one action, so what was unsaved in them comes back by GoBack.
    void TakeFromDisk();
    // Leaves them for what they are: what the bench has is unsaved against them.
    void LeaveOnDisk();

    // Writes what is unsaved to the journal. Called after every action, so that a crash loses nothing; Save does it
    // too.
    void KeepJournal() const;

  private:
    void Step(const BenchAction& action, Direction direction);
    void PutIntoGame(const TableChange& change, Direction direction);
    void Record(BenchAction action);
    void FindTableInGame();
    Tables InGame() const;

    Tables working_{};
    Tables saved_{};                       // as the files were read or written last
    StageDataType seen_[kStageEntries]{};  // game.StageData when it was last looked at
    int loaded_ = -1;
    std::vector<BenchAction> history_;
    std::size_t done_ = 0;
    int changes_ = 0;
};
