// The command line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace desktop {

struct Options {
    std::string folder;   // --folder; empty: not given
    bool author = false;  // --author
    std::optional<std::uint64_t> seed;
    std::string soundFont;    // --soundfont; empty: not given
    std::string record;       // --record; empty: not given
    std::string replay;       // --replay; empty: not given
    bool anyData = false;     // --any-data
    bool fast = false;        // --fast
    std::string screenshots;  // --screenshots; empty: not given
    bool help = false;
    bool version = false;
    std::string error;  // what is wrong with the line; empty: nothing
};

// Reads the arguments after the program's name. Values stand after "=" or in the next argument. Stops at the first
// mistake.
Options ParseOptions(const std::vector<std::string_view>& arguments);

// What --help prints.
std::string HelpText();

}  // namespace desktop
