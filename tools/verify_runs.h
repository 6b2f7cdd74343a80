// Verified tables: any number of recorded games played again, and who is best among those that are what they say.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "recording/verify.h"

struct VerifyPlan {
    std::vector<std::string> names;  // files, links, or folders whose runs are meant
    int jobs = 2;                    // processes
    bool anyData = false;
    bool json = false;    // instead of the text
    std::string page;     // an HTML file to write; empty: none
    std::string address;  // of the game's page, for links in it
};

// Verifies all of them and prints the verdicts and the ranking. Returns the exit status: 1 when one is not what it says
// or cannot be read.
int VerifyRuns(const VerifyPlan& plan);

// What came of one game; plain values, because it comes out of another process.
struct VerifiedRun {
    Verdict verdict;
    int play, level, frames, score;
    Outcome how;
    bool ranked;
    std::uint64_t seed, identity;
    double seconds;  // of processor time
    char date[32], name[96], pilot[64], program[32];
    char reason[300];  // of the verdict, or why it is not ranked
};

struct Verified {
    std::string file;
    VerifiedRun run;
};

// The places of one play and level, best first.
struct Ranking {
    int play, level;
    std::vector<const Verified*> places;
};
// Of all that are ranked; the same game once.
std::vector<Ranking> Rank(const std::vector<Verified>& runs);

// What plays and levels are called in the lists.
std::string PlayTitle(int play);
std::string LevelTitle(int level);

// The rankings as a page of its own. Links lead to `address`.
std::string RankingPage(const std::vector<Ranking>& rankings, const std::string& address);
