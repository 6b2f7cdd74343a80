// The command line of the desktop program.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace desktop {

struct Options {
    std::string folder;   // --folder; empty: not given
    bool author = false;  // --author
    std::string from;     // --from; a place as ReadPlace takes it, or empty
    std::optional<std::uint64_t> seed;
    std::string soundFont;    // --soundfont; empty: not given
    std::string run;          // a run to be shown; empty: none
    std::string record;       // --record; empty: not given
    std::string replay;       // --replay; empty: not given
    bool anyData = false;     // --any-data
    bool fast = false;        // --fast
    std::string screenshots;  // --screenshots; empty: not given
    std::optional<int> scale;
    bool fullScreen = false;  // --fullscreen
    bool fit = false;         // --fit
    bool calm = false;        // --calm
};

// Reads the line into `options`; needs no display. Nothing when the game is to start; else the status to end with: what
// was asked for has been printed, or what is wrong been said.
std::optional<int> ReadOptions(int argc, const char* const* argv, Options& options);

}  // namespace desktop
