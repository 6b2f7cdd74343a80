// The options and difficulties of the menu bar, a row each: what recordings keep of them, and how they are set.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <string_view>

#include "state/main_form.h"
#include "state/state.h"

// The difficulty menu. The number is `Level`: it is added to the speeds of enemy shots, and stands in recordings.
struct Difficulty {
    Integer level;
    MenuItem MainFormType::*item;
    Long ScoresType::*best;  // its best score in the normal game
};
inline constexpr Difficulty kDifficulties[] = {
    {1, &MainFormType::MENU101, &ScoresType::Easy},
    {2, &MainFormType::MENU102, &ScoresType::Nomal},
    {5, &MainFormType::MENU103, &ScoresType::Hard},
};
inline constexpr Integer kNomal = 2;  // at start, and always in the score attack

// Clicks the item of the row with that number: ChooseRow(kDifficulties, &Difficulty::level, 5). Does nothing without
// one.
void ChooseRow(const auto& rows, auto number, int wanted) {
    const auto row = std::ranges::find(rows, wanted, number);
    if (row != std::end(rows)) ClickMenu(MainForm.*row->item);
}

// The options: an option *is* the check mark of its item. At start it stands as the item is designed (main_form.h).
struct Option {
    MenuItem MainFormType::*item;
    std::string_view word;  // in recordings; one that lacks the word means the state at start
};
inline constexpr Option kOptions[] = {
    {&MainFormType::Menu002, "Wait"}, {&MainFormType::Menu003, "Invincible"}, {&MainFormType::Menu004, "Effects"},
    {&MainFormType::Menu006, "BGM"},  {&MainFormType::Menu008, "Joystick"},
};

// A check mark for each option.
class OptionMarks {
  public:
    // As they are at start.
    OptionMarks();

    // Of the option with that item, which must have a row.
    bool& operator[](MenuItem MainFormType::*item);
    bool operator[](MenuItem MainFormType::*item) const;

    bool operator==(const OptionMarks&) const = default;

  private:
    std::array<bool, std::size(kOptions)> marks_{};
};

// What `MainForm` has now; and the way back. Only the marks are set: nothing that a click on the item would do.
OptionMarks CurrentOptions();
void SetOptions(const OptionMarks& marks);
