// Many seeds of one kind of game, whole or in shards, at once or with interruptions.
#pragma once

#include <string>
#include <vector>

#include "simulation.h"

struct SweepPlan {
    SimOptions sim;           // its seed is the first
    std::uint64_t seeds = 1;  // how many, from the first on
    std::uint64_t shard = 1;  // 1 to `shards`: every one of so many seeds
    std::uint64_t shards = 1;
    int jobs = 2;        // processes
    bool json = false;   // a line for each game instead of the table
    std::string resume;  // the file that keeps the lines of finished games; empty: none
};

// Plays what is not in the plan's file yet, and prints the summary of all of it. Returns the exit status: 1, with a
// message, when a game failed or the file is no good.
int Sweep(const SweepPlan& plan);

// Prints the summary of the games whose lines stand in `files`, or all lines by their seeds. Returns the exit status:
// 1, with a message that names file and line, for lines that cannot be read, are of another sweep or stand there twice.
int Merge(const std::vector<std::string>& files, bool json);
