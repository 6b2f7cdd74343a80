// The command line of tarnveil-sim.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "sweep.h"

struct SimLine {
    SweepPlan games;
    std::string folder = ".";
    std::vector<std::string> verify;  // recordings, runs and folders of them; empty: none
    std::string page;                 // an HTML file to write of them; empty: none
    std::string address = "./";       // of the game's page, for its links
    std::string renew;                // a recording to make anew; empty: none
    std::string chart;                // an SVG file to draw; empty: none
    std::string passages;             // names for the chart; empty: none
    std::vector<std::string> merge;   // files of games to add up; empty: none
    bool playGiven = false;
    bool report = false;
    bool hold = false;
    bool anyData = false;
};

// Reads the line. Nothing when the program goes on; else the status to end with: what was asked for has been printed,
// or what is wrong been said.
std::optional<int> ReadSimLine(int argc, const char* const* argv, SimLine& line);
