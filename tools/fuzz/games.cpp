// libFuzzer's way into play: short games on any tables. One input is one set of tables and what the player does, laid
// out like the data files themselves, so that the shipped ones are where the search begins. Whole games on hostile data
// with everything drawn are hostile_games' part; here a frame costs next to nothing, so that many can be tried.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "host/headless/headless.h"
#include "host/window.h"
#include "platform/events.h"
#include "shell/game_loop.h"
#include "shell/window_design.h"
#include "stage/data_files.h"
#include "stage/load_stage.h"
#include "stage/plays.h"
#include "state/field_size.h"
#include "state/main_form.h"
#include "state/options.h"
#include "state/random.h"
#include "toolkit/folder.h"
#include "toolkit/input_state.h"
#include "toolkit/text.h"

namespace {

constexpr int kFrames = 200;
// An input, in turn; what it is too short for is zeros.
constexpr std::size_t kOptionBytes = 8;                         // level, play, stage, ship, seed
constexpr std::size_t kEntryBytes = 96 * kStageDataFileSize;    // the first entries; then nothing comes
constexpr std::size_t kStepBytes = 32 * 50 * kEneMoveFileSize;  // the first steps of every pattern; then they end
constexpr int kKeys[] = {VK_UP, VK_DOWN, VK_LEFT, VK_RIGHT, VK_X, VK_Z, VK_SPACE};

std::span<const std::uint8_t> actions;  // one byte for each yield
int yields = 0;

std::span<const std::uint8_t> Take(std::span<const std::uint8_t>& in, std::size_t size) {
    const auto taken = in.first(std::min(size, in.size()));
    in = in.subspan(taken.size());
    return taken;
}

// The file's bytes for a table whose beginning is given.
template <std::size_t kBytes>
std::span<const std::uint8_t> Whole(std::span<const std::uint8_t> given) {
    static std::array<std::uint8_t, kBytes> bytes;
    bytes.fill(0);
    std::copy(given.begin(), given.end(), bytes.begin());
    return bytes;
}

void FillTables(std::span<const std::uint8_t>& in) {
    DecodeEnemyData(Whole<kEnemyDataFileBytes>(Take(in, kEnemyDataFileBytes)), game.EnemyData);
    const auto entries = Take(in, kEntryBytes);
    DecodeStageData(Whole<kStageFileBytes>(entries), game.StageData);
    for (std::size_t i = kEntryBytes / kStageDataFileSize; i < kStageEntries; ++i) game.StageData[i].No = 254;
    const auto steps = Take(in, kStepBytes);
    DecodeEneMove(Whole<kEneMoveFileBytes>(steps), game.EneMove);
    for (auto& pattern : game.EneMove) pattern[kStepBytes / kEneMoveFileSize / kMovePatterns].Flag = 255;
}

// A key, a stick or an option; an ending, which takes a thousand frames, is not waited for.
void Act(std::vector<InputEvent>& events) {
    using enum InputEvent::Kind;
    constexpr int kMostYields = 2 * kFrames;
    if (++yields > kMostYields || game.AllClear != False) {
        events.push_back({closeWindow});
        return;
    }
    if (actions.empty()) return;
    const std::uint8_t action = Take(actions, 1)[0];
    const std::size_t which = action & 31;
    if (which < std::size(kKeys)) events.push_back({action & 128 ? keyUp : keyDown, kKeys[which]});
    if (which == 8) events.push_back({joystick, action >> 7, action * 257u, (action & 96u) * 600u, action / 64u});
    if (which == 9) events.push_back({joystickOff, action >> 7});
    if (which == 10) events.push_back({allKeysUp});
    if (which > 20 && which - 20 < kMenuBar.size())
        events.push_back({menu, 0, 0, 0, 0, (MainForm.*kMenuBar[which - 20]).Name});
}

struct Start {
    GameState state;
    MainFormType form;
};

// A game that has just begun on the shipped data. Of the screen only a corner is kept and no text is written: what is
// drawn outside is cut off as always, and a frame is drawn in no time.
Start MakeStart() {
    headless::Reset();
    SetProgramFolder(TARNVEIL_DATA_FOLDER);
    game.ScreenW = kFieldWidth, game.ScreenH = kFieldHeight;
    LoadMainForm();
    LoadStage();
    MainForm.Crt.imageWidth = 24, MainForm.Crt.imageHeight = 16;
    MainForm.Crt.image.assign(24 * 16, kBlack);
    static const Font noGlyphs;
    MainForm.Crt.TextFont = &noGlyphs;
    SetEventTap(Act);
    return {game, MainForm};
}

// Only what a game may have changed of the window; its sheets are large.
void Restore(const Start& start) {
    game = start.state;
    const bool bossCame = MainForm.BossPic.HasPicture || !MainForm.EnemyPic.HasPicture;
    if (bossCame || MainForm.B_Crt.HasPicture != start.form.B_Crt.HasPicture) {
        MainForm = start.form;
        return;
    }
    MainForm.Crt = start.form.Crt;
    MainForm.MyPowerPic = start.form.MyPowerPic;
    for (const auto item : kMenuBar) MainForm.*item = start.form.*item;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Start start = MakeStart();
    Restore(start);
    headless::Reset();
    headless::TheHost().stepPerReading = 25;
    std::span<const std::uint8_t> in(data, size);
    std::array<std::uint8_t, kOptionBytes> options{};
    std::ranges::copy(Take(in, kOptionBytes), options.begin());
    game.Level = kDifficulties[options[0] % std::size(kDifficulties)].level;
    game.DigestMode = kPlays[options[1] % std::size(kPlays)].number;
    game.StageNo = static_cast<Integer>(options[2] % 4);
    game.MyPower = static_cast<Single>(options[3] % 11);
    game.MyDead = options[3] % 11 == 0 ? True : False;
    Randomize(options[4] | static_cast<unsigned>(options[5]) << 8);
    game.StarReverse = options[6] & 1 ? True : False;
    FillTables(in);
    actions = in;
    yields = 0;
    try {
        for (int frame = 0; frame < kFrames && PlayFrame(); ++frame) {
        }
    } catch (const EndProgram&) {
    }
    return 0;
}
