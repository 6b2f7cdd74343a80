#include "hostile.h"

#include <algorithm>
#include <ctime>
#include <vector>

#include "combat/enemy_move.h"
#include "fresh_program.h"
#include "host/headless/headless.h"
#include "host/window.h"
#include "hostile_folder.h"
#include "platform/events.h"
#include "shell/game_loop.h"
#include "stage/data_files.h"
#include "stage/plays.h"
#include "stage/stage_script.h"
#include "state/main_form.h"
#include "state/options.h"
#include "state/random.h"
#include "toolkit/byte_order.h"
#include "toolkit/folder.h"
#include "toolkit/input_state.h"

namespace {

// Hands out the bytes, and when they are used up numbers grown from them, so that short inputs fill whole tables too.
class Source {
  public:
    explicit Source(std::span<const std::uint8_t> bytes) : bytes_(bytes) {
        for (const std::uint8_t byte : bytes) state_ = (state_ ^ byte) * 0x100000001B3u;
    }

    std::uint8_t Byte() { return at_ < bytes_.size() ? bytes_[at_++] : static_cast<std::uint8_t>(Grown() >> 56); }
    unsigned Below(unsigned count) {
        const unsigned number = Byte() | static_cast<unsigned>(Byte()) << 8;
        return count == 0 ? 0 : number % count;
    }
    bool Chance(unsigned in256) { return Byte() < in256; }

    // Grown only: for the bulk of the tables, which would use up any input at once.
    std::uint32_t Bulk() { return static_cast<std::uint32_t>(Grown() >> 32); }
    unsigned BulkBelow(unsigned count) { return Bulk() % count; }

  private:
    std::uint64_t Grown() {
        state_ += 0x9E3779B97F4A7C15u;
        const std::uint64_t z = (state_ ^ (state_ >> 30)) * 0xBF58476D1CE4E5B9u;
        return z ^ (z >> 29);
    }

    std::span<const std::uint8_t> bytes_;
    std::size_t at_ = 0;
    std::uint64_t state_ = 0xCBF29CE484222325u;
};

// How wild the numbers are, of 256.
struct Wildness {
    unsigned values;
    unsigned commands;
};

Single AnySingle(Source& in, const Wildness& wild, int span) {
    if (in.BulkBelow(256) < wild.values) return std::bit_cast<Single>(in.Bulk());
    return static_cast<Single>(static_cast<int>(in.BulkBelow(static_cast<unsigned>(2 * span))) - span) / 4;
}

std::vector<std::uint8_t> AnyStage(Source& in, const Wildness& wild) {
    StageDataType table[kStageEntries];
    for (StageDataType& e : table) {
        e = {AnySingle(in, wild, 1400), AnySingle(in, wild, 400), static_cast<Integer>(in.BulkBelow(kEnemyKinds + 2)),
             static_cast<Integer>(in.BulkBelow(12)), static_cast<Byte>(in.BulkBelow(6))};
        if (in.BulkBelow(256) < wild.commands)
            e.No = static_cast<Integer>(kFirstCommand + in.BulkBelow(kRepeat - kFirstCommand + 2));
        if (in.BulkBelow(256) < wild.values) e.No = static_cast<Integer>(in.Bulk());
        if (in.BulkBelow(256) < wild.values) e.Counter = static_cast<Integer>(in.Bulk());
        if (e.No == kRepeat)
            e.X = static_cast<Single>(in.BulkBelow(kStageEntries + 7)), e.Y = static_cast<Single>(in.BulkBelow(4));
    }
    return EncodeStageData(table);
}

std::vector<std::uint8_t> AnyKinds(Source& in, const Wildness& wild) {
    EnemyDataType table[kEnemyKinds];
    for (EnemyDataType& k : table) {
        k = {static_cast<Integer>(in.BulkBelow(700)),
             static_cast<Integer>(in.BulkBelow(kStageEntries + 7)),
             static_cast<Integer>(in.BulkBelow(100)),
             static_cast<Integer>(in.BulkBelow(100)),
             static_cast<Byte>(in.BulkBelow(4)),
             static_cast<Byte>(in.BulkBelow(kMovePatterns + 1)),
             static_cast<Byte>(in.Bulk())};
        for (Integer* field : {&k.SX, &k.SY, &k.Width, &k.Height}) {
            if (in.BulkBelow(256) < wild.values) *field = static_cast<Integer>(in.Bulk());
        }
    }
    return EncodeEnemyData(table);
}

std::vector<std::uint8_t> AnyMoves(Source& in, const Wildness& wild) {
    static EneMoveType table[kMovePatterns][kMoveSteps];
    for (auto& pattern : table) {
        for (EneMoveType& step : pattern) {
            step = {AnySingle(in, wild, 24), AnySingle(in, wild, 24), static_cast<Byte>(in.BulkBelow(9)),
                    static_cast<Byte>(in.BulkBelow(kLastFireCode + 3))};
            if (in.BulkBelow(256) < wild.commands) {
                step.Flag = static_cast<Byte>(kJump + in.BulkBelow(kEndOfEnemy - kJump + 1));
                step.DX = static_cast<Single>(in.BulkBelow(kMoveSteps + 6)) - 3;
            }
        }
    }
    return EncodeEneMove(table);
}

// Now and then a file is cut short or missing: the game must end with a message.
void WriteTables(Source& in, const std::string& folder) {
    const Wildness wild{in.Below(64), in.Below(48)};
    const auto put = [&](std::string_view name, std::vector<std::uint8_t> bytes) {
        const std::string path = folder + "/" + std::string(name.substr(1));
        hostile::DropFile(path);
        if (in.Chance(1)) return;
        if (in.Chance(1)) bytes.resize(in.Below(static_cast<unsigned>(bytes.size())));
        hostile::PutFile(path, bytes);
    };
    for (const Play& play : kPlays) put(play.file, AnyStage(in, wild));
    put(kEnemyDataFile, AnyKinds(in, wild));
    put(kEneMoveFile, AnyMoves(in, wild));
    put("\\Wave1.wav", std::vector<std::uint8_t>(in.Below(50), 7));
    put("\\Wave2.wav", {});
}

// Sheets of any size with any pixels.
void SpoilPictures(Source& in) {
    for (Surface* sheet : {&MainForm.EnemyPic, &MainForm.BossPic, &MainForm.EneShotPic, &MainForm.BomPic,
                           &MainForm.BomPic64, &MainForm.BomPic128, &MainForm.Chr, &MainForm.MessagePic}) {
        if (!in.Chance(40)) continue;
        Picture picture{static_cast<int>(in.Below(60)), static_cast<int>(in.Below(60)), {}};
        picture.pixels.resize(static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height));
        for (Color& pixel : picture.pixels) pixel = in.Bulk() & 0xFFFFFF;
        SetPicture(*sheet, picture);
    }
}

Source* input = nullptr;
HostileReport report;
int limit = 0;
void (*frameSeen)() = nullptr;
std::clock_t frameStart = 0;

// Random keys, joystick readings and menu clicks; at the limit, the way out.
void Steer(std::vector<InputEvent>& events) {
    using enum InputEvent::Kind;
    constexpr int kKeys[] = {VK_UP, VK_DOWN, VK_LEFT, VK_RIGHT, VK_X, VK_Z, VK_SPACE};
    if (report.frames >= limit || game.AllClear != False) {
        events.push_back({keyDown, VK_ESCAPE});
        events.push_back({menu, 0, 0, 0, 0, "Menu301"});
        return;
    }
    if (input->Chance(90)) events.push_back({input->Chance(128) ? keyDown : keyUp, kKeys[input->Below(7)]});
    if (input->Chance(10))
        events.push_back({joystick, static_cast<int>(input->Below(3)), input->Bulk(), input->Bulk(), input->Bulk()});
    if (input->Chance(2)) events.push_back({joystickOff, static_cast<int>(input->Below(3))});
    if (input->Chance(4)) {
        const MenuItem& item = MainForm.*kMenuBar[input->Below(kMenuBar.size())];
        const bool leaves = &item == &MainForm.Menu301 || &item == &MainForm.Menu303;
        if (!leaves) events.push_back({menu, 0, 0, 0, 0, item.Name});
    }
}

void Started(std::uint64_t) {
    SpoilPictures(*input);
    frameStart = std::clock();
}

void FrameDone() {
    ++report.frames;
    const std::clock_t now = std::clock();
    report.slowestFrame = std::max(report.slowestFrame, static_cast<double>(now - frameStart) / CLOCKS_PER_SEC);
    frameStart = now;
    headless::TheHost().audio.clear();
    headless::TheHost().log.clear();
    if (frameSeen) frameSeen();
    // A picture may be swapped in the middle of a game as well.
    if (input->Chance(1)) SpoilPictures(*input);
}

void StartProgram(Source& in, const std::string& folder) {
    constexpr std::uint32_t kClockStep = 25;
    FreshProgram(kClockStep);
    SetProgramFolder(folder);
    if (in.Chance(128)) EnableAuthorMenus();
    ClickMenu(MainForm.*kDifficulties[in.Below(std::size(kDifficulties))].item);
    ClickMenu(MainForm.*kPlays[in.Below(std::size(kPlays))].item);
    FixSeed(in.Bulk());
}

}  // namespace

HostileReport PlayHostileGame(std::span<const std::uint8_t> bytes, const std::string& folder, int frameLimit,
                              void (*seen)()) {
    Source in(bytes);
    input = &in;
    report = {};
    limit = frameLimit;
    frameSeen = seen;
    StartProgram(in, folder);
    WriteTables(in, folder);
    gameWatcher = {Started, FrameDone, nullptr};
    SetEventTap(Steer);
    try {
        GameLoop();
        report.ended = true;
    } catch (const EndProgram&) {
    }
    return report;
}
