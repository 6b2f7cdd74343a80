#include "test_game.h"

#include "platform/events.h"
#include "platform/folder.h"
#include "shell/game_loop.h"
#include "stage/data_files.h"
#include "stage/faults.h"
#include "stage/load_stage.h"

GameTest::GameTest() {
    headless::Reset();
    game = GameState{};
    MainForm = MainFormType{};
    game.ScreenW = 320;
    game.ScreenH = 480;
    LoadMainForm();
    ForgetFaults();
    SetEventTap(nullptr);
    gameWatcher = {};
    UseClockSeed();
    Randomize(1);
}

GameTest::~GameTest() {
    if (!folder_.empty()) std::filesystem::remove_all(folder_);
    SetProgramFolder(".");
}

std::filesystem::path GameTest::UseFolder(bool filled) {
    std::string pattern = (std::filesystem::temp_directory_path() / "tarnveil-test-XXXXXX").string();
    folder_ = mkdtemp(pattern.data());
    if (filled) {
        std::filesystem::copy(std::filesystem::path(TARNVEIL_ASSETS) / "data", folder_,
                              std::filesystem::copy_options::recursive);
    }
    SetProgramFolder(folder_.string());
    return folder_;
}

void GameTest::StartEmptyGame() {
    const auto folder = UseFolder(false);
    for (const auto& [name, size] : {std::pair{"STAGE1.DAT", kStageFileBytes},
                                     {"EnemyData.DAT", kEnemyDataFileBytes},
                                     {"EneMove.DAT", kEneMoveFileBytes}}) {
        const std::vector<std::uint8_t> zeros(size);
        ASSERT_EQ("", WriteFileKeepingTail((folder / name).string(), zeros));
    }
    LoadStage();
    for (auto& entry : game.StageData) entry.No = 254;  // nothing comes
    host.audio.clear();
    host.log.clear();
}
