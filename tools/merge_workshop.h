// Lua sources that are being changed, and how far what they build is from the tables that are wanted.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "lua_tables.h"
#include "sheets.h"

// A part of a source to be replaced.
struct Edit {
    std::string file;
    std::size_t start;
    std::size_t end;
    std::string text;
};

// What the sources build.
struct BuiltState {
    std::unique_ptr<BuiltTables> built;
    std::vector<Sheet> sheets;
    std::vector<std::vector<Difference>> differences;  // from the wanted sheets, by sheet
    int cost = 0;
};

// A difference by its sheet.
struct Spot {
    std::size_t sheet;
    Difference difference;
};

class Workshop {
  public:
    // Reads and builds the sources. The fault, or empty. Called first.
    std::string Open(const Tables& wanted, const std::string& folder);

    const std::map<std::string, std::string>& Sources() const { return sources_; }
    const std::string& SourceOf(const Spot& spot) const { return sources_.at(wanted_[spot.sheet].source); }
    const std::vector<Sheet>& Wanted() const { return wanted_; }
    const Tables& WantedTables() const { return *tables_; }
    const BuiltState& Now() const { return now_; }

    // Only for records that are there.
    const Row& WantedRow(const Spot& spot) const;
    const Row& BuiltRow(const Spot& spot) const;
    bool IsPair(const Spot& spot) const { return spot.difference.built >= 0 && spot.difference.wanted >= 0; }

    // The lines that made a record; beyond the last, those of the last. Zeros when there is none.
    Origin OriginAt(std::size_t sheet, int row) const;
    // The name that stands for a number in this field of the sources; empty: none.
    std::string WordFor(std::size_t sheet, std::size_t field, double value) const;

    // What the sources build after the edit; none when they do not build, or when something that was right would no
    // longer be.
    std::optional<BuiltState> Try(const Edit& edit) const;
    void Make(const Edit& edit, BuiltState state);

    // The records of one sheet after the edit, right or wrong; none when the sources do not build.
    std::vector<Row> Probe(const Edit& edit, std::size_t sheet) const;

  private:
    std::string Build(const std::map<std::string, std::string>& sources, BuiltState& state) const;
    BuiltState After(const Edit& edit) const;  // without sheets when the sources do not build
    bool SpoilsNothing(const BuiltState& state) const;

    std::string folder_;
    std::unique_ptr<Tables> tables_;
    std::vector<Sheet> wanted_;
    std::map<std::string, std::string> sources_;
    BuiltState now_;
};
