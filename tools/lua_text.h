// Records as Lua text that builds to the same bytes: the pieces that a dump is put together from.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "author/fields.h"

using Words = std::map<Integer, std::string>;  // the words that numbers have

Words WordsOf(const Names& names);

// "dart", with whatever a Lua text needs escaped.
std::string Quoted(std::string_view text);

// A value that seven digits do not say would be rounded by a build: it is given by its bits.
std::string LuaText(Single value);

// One field of a record in Lua.
struct Cell {
    std::string_view name;
    std::string text;
};
using Cells = std::vector<Cell>;

// In the order of the record. `words` are for the field that takes names.
Cells CellsOf(std::span<const Field> fields, const Words& words);

// "No = "dart", X = 40": every cell but those that are plain 0.
std::string ListOf(const Cells& cells);

// Singles that grow evenly: value i is `first` plus i times `step`, counted in Lua's numbers and rounded as a build
// rounds.
struct Progression {
    std::string first;
    std::string step;  // "0": all are the same

    // "40 + 34 * i"
    std::string Text() const;
};

// None when they do not.
std::optional<Progression> ProgressionOf(std::span<const Single> values);

// Bit for bit: what is no number equals itself, and zeros of different sign differ.
bool SameBits(Single a, Single b);
