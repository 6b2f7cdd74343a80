// A stage in numbers: by level, weapon and pilot.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "simulation.h"

// What is asked: one kind of play by one pilot.
struct Question {
    SimPlay play;
    int level;
    std::string pilot;
    Weapon weapon;
};

// The answer over many seeds. Shares and rates over all of them, means of what was measured.
struct Answer {
    Question question;
    int games = 0;
    int failed = 0;      // ended by an error
    double cleared = 0;  // share
    double hitsPerMinute = 0;
    double wayHitsPerMinute = 0;  // before the boss
    double bossSeconds = 0;       // of the games that were cleared; 0: none was
    double score = 0;
    double lonely = 0;         // share of the way without an enemy in sight
    double lonelySeconds = 0;  // the longest time of it in a row, at worst
    double enemies = 0;        // in sight on the way
    double shots = 0;
    double lifeSeconds = 0;  // median; as long as the game for those that cleared it
    double safeSeconds = 0;  // median of the longest time without a hit
    int spawnsLost = 0;
    int offScreen = 0;                        // shots born outside the field
    std::array<double, kFireCodes> byCode{};  // shares of the hits
    std::array<double, kEnemyKinds> byKind{};
};

// Everything that the report asks, in the order in which it is printed.
std::vector<Question> AllQuestions();

// Plays `seeds` seeds of each; of a ship that stands still, which differs little, a fifth.
std::vector<Answer> Ask(const std::vector<Question>& questions, int seeds, int jobs);

void PrintAnswers(const std::vector<Answer>& answers);
void PrintAnswersAsJson(const std::vector<Answer>& answers);
