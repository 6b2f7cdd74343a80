#include "options.h"

#include "author/try_out.h"
#include "command_line/command_line.h"

namespace desktop {

std::optional<int> ReadOptions(int argc, const char* const* argv, Options& options) {
    using namespace command_line;
    App app("tarnveil", 6, "A vertically scrolling shooting game.");
    AddFolder(app, "--folder", options.folder, "use the tables, sounds, music and best scores in DIR");
    auto* author = AddFlag(app, "--author", options.author, "switch on the editors, the bench and the invincible mode");
    const auto takePlace = [&options](const std::string& text) {
        options.from = text;
        TryOut place;
        return ReadPlace(text, place);
    };
    AddWord(app, "--from", "STAGE:ENTRY", takePlace, "start at that entry: stage2:40")->needs(author);
    AddNumber(app, "--seed", options.seed, 0, kAnyNumber, "start every game from the random seed N");
    AddFile(app, "--soundfont", options.soundFont, "play the music with the SoundFont FILE");
    auto* record = AddOutputFile(app, "--record", options.record, "record the first game into FILE");
    auto* replay = AddFile(app, "--replay", options.replay, "play the recorded game FILE and exit")->excludes(record);
    app.add_option("FILE", options.run, "a run to be shown, or another recorded game")
        ->check(WhyNotRead)
        ->excludes(replay);
    AddFlag(app, "--any-data", options.anyData, "replay also with other data tables than recorded with")->needs(replay);
    AddFlag(app, "--fast", options.fast, "replay as fast as the machine draws")->needs(replay);
    AddOutputFolder(app, "--screenshots", options.screenshots, "leave three pictures of the replay in DIR")
        ->needs(replay);
    constexpr int kLargestScale = 64;
    AddNumber(app, "--scale", options.scale, 1, kLargestScale,
              "show each pixel as N x N, as far as the screen is large");
    AddFlag(app, "--fullscreen", options.fullScreen, "fill the screen");
    AddFlag(app, "--fit", options.fit, "in full screen use its whole height, not only whole multiples");
    AddFlag(app, "--calm", options.calm, "soften flashes");
    return app.Read(argc, argv);
}

}  // namespace desktop
