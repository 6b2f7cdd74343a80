#include "test_game.h"

#include "fresh_program.h"
#include "stage/data_files.h"
#include "stage/load_stage.h"
#include "toolkit/folder.h"

GameTest::GameTest() {
    FreshProgram();
    Randomize(1);
}

GameTest::~GameTest() {
    SetProgramFolder(".");
}

std::filesystem::path GameTest::UseFolder(bool filled) {
    folders_.emplace_back(filled ? std::filesystem::path(TARNVEIL_ASSETS) / "data" : std::filesystem::path());
    SetProgramFolder(folders_.back().path.string());
    return folders_.back().path;
}

void GameTest::StartEmptyGame() {
    const auto folder = UseFolder(false);
    for (const auto& [name, size] : {std::pair{"STAGE1.DAT", kStageFileBytes},
                                     {"EnemyData.DAT", kEnemyDataFileBytes},
                                     {"EneMove.DAT", kEneMoveFileBytes}}) {
        const std::vector<std::uint8_t> zeros(size);
        ASSERT_EQ("", WriteWholeFile((folder / name).string(), zeros));
    }
    LoadStage();
    for (auto& entry : game.StageData) entry.No = 254;  // nothing comes
    host.audio.clear();
    host.log.clear();
}
