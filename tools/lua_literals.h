// The numbers and names that stand in a Lua source as such, with their places: what can be changed without touching
// its structure.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct Literal {
    enum class Kind { number, text, tableEnd } kind;
    std::size_t start;  // in the source; a number's sign belongs to it, a text's quotes do
    std::size_t end;
    int line;      // from 1
    double value;  // of a number
    bool bound;    // a number behind a minus that is not its sign
};

// In order. Comments are passed over; `tableEnd` are the closing braces. A source that is no Lua gives anything.
std::vector<Literal> LiteralsOf(std::string_view source);
