// Games as text, one JSON object a line: what shards of a sweep hand to each other.
#pragma once

#include <string>

#include "many_games.h"

// What is played and with which tables, as JSON. Lines of one sweep have it in common.
std::string SweepOf(const SimOptions& options);

// One game of that sweep, without a line end. The same game gives the same line anywhere: nothing measured is in it.
std::string GameLine(const std::string& sweep, const GameResult& result);

// Reads a line. Empty, or what is wrong with it.
std::string ReadGameLine(const std::string& line, std::string& sweep, GameResult& result);

// Whether the text is the beginning of a game's line, as an interruption leaves it.
bool BeginsGameLine(const std::string& text);
