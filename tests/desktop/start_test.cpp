// The start of the program: its folder.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>

#include "desktop_test.h"
#include "host/clock.h"
#include "host/desktop/program_folder.h"
#include "platform/waits.h"

namespace fs = std::filesystem;
using desktop::Folders;

namespace {

class FolderTest : public testing::Test {
  protected:
    FolderTest() {
        fs::create_directories(Data());
        for (const std::string& name : kTables) Write(Data() / name, "shipped");
        Write(Data() / "Wave1.wav", "wave");
        setenv("TARNVEIL_DATA", Data().c_str(), 1);
    }
    ~FolderTest() override { unsetenv("TARNVEIL_DATA"); }

    const std::vector<std::string> kTables = {"STAGE1.DAT", "EneMove.DAT"};
    fs::path Data() const { return root_.path / "data"; }
    fs::path Bin() const { return root_.path / "bin"; }
    fs::path User() const { return root_.path / "home" / "share" / "tarnveil"; }
    static void Write(const fs::path& path, const std::string& text) { std::ofstream(path) << text; }
    void FillBin() {
        fs::create_directories(Bin());
        for (const std::string& name : kTables) Write(Bin() / name, "own");
    }

  private:
    TemporaryFolder root_;
};

TEST_F(FolderTest, TheFirstStartCopiesNothing) {
    EXPECT_EQ((Folders{User(), Data()}), desktop::ChooseFolders(Bin(), User(), kTables));
    EXPECT_FALSE(fs::exists(User().parent_path()));
}

// Copies of what was ever shipped go; what the player has changed, a link, and other files stay.
TEST_F(FolderTest, UnchangedCopiesOfShippedFilesGo) {
    const fs::path shipped = fs::path(TARNVEIL_ASSETS) / "data";
    fs::create_directories(User().parent_path());
    fs::copy(shipped, User());
    fs::remove(User() / "STAGE2.DAT");
    fs::create_symlink(shipped / "STAGE2.DAT", User() / "STAGE2.DAT");
    std::ofstream(User() / "STAGE1.DAT", std::ios::app) << "x";
    fs::copy(shipped / "STAGE3.DAT", User() / "mine.DAT");
    Write(User() / "Scores.DAT", "0123456789abcdef");
    desktop::ChooseFolders(Bin(), User(), kTables);
    std::set<std::string> left;
    for (const auto& file : fs::directory_iterator(User())) left.insert(file.path().filename());
    EXPECT_EQ((std::set<std::string>{"STAGE1.DAT", "STAGE2.DAT", "Scores.DAT", "mine.DAT"}), left);
}

TEST_F(FolderTest, TheShippedDataItselfIsNeverCleaned) {
    fs::create_directories(User());
    fs::copy(fs::path(TARNVEIL_ASSETS) / "data" / "STAGE1.DAT", User());
    setenv("TARNVEIL_DATA", (User() / ".").c_str(), 1);
    EXPECT_EQ((Folders{User(), {}}), desktop::ChooseFolders(Bin(), User(), kTables));
    EXPECT_TRUE(fs::exists(User() / "STAGE1.DAT"));
}

TEST_F(FolderTest, AnExecutableBesideItsTablesUsesThem) {
    FillBin();
    EXPECT_EQ((Folders{Bin(), {}}), desktop::ChooseFolders(Bin(), User(), kTables));
    EXPECT_FALSE(fs::exists(User()));
    fs::remove(Bin() / "EneMove.DAT");
    EXPECT_EQ((Folders{User(), Data()}), desktop::ChooseFolders(Bin(), User(), kTables)) << "one table is missing";
}

TEST_F(FolderTest, AnExecutablesFolderThatCannotBeWrittenIsNotUsed) {
    if (geteuid() == 0) GTEST_SKIP() << "root may write everywhere";
    FillBin();
    fs::permissions(Bin(), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ((Folders{User(), Data()}), desktop::ChooseFolders(Bin(), User(), kTables));
    fs::permissions(Bin(), fs::perms::owner_all);
}

TEST_F(FolderTest, TheDataIsLookedForInTheShareFolderAndBesideTheProgram) {
    unsetenv("TARNVEIL_DATA");
    const fs::path built = Bin() / "data";
    fs::create_directories(built);
    EXPECT_EQ(fs::canonical(built), fs::canonical(desktop::FirstFolder(desktop::DataCandidates(Bin()))));
    const fs::path installed = Bin().parent_path() / "share" / "tarnveil" / "data";
    fs::create_directories(installed);
    fs::create_directories(Bin());
    EXPECT_EQ(fs::canonical(installed), fs::canonical(desktop::FirstFolder(desktop::DataCandidates(Bin()))));
}

TEST(ClockTest, StartsNearZeroAndRunsInMilliseconds) {
    const std::uint32_t start = timeGetTime();
    EXPECT_LT(start, 600000u);
    usleep(50000);
    EXPECT_GE(timeGetTime() - start, 49u);
    EXPECT_LT(timeGetTime() - start, 5000u);
    EXPECT_NE(SystemClockSeed(), SystemClockSeed());
}

TEST(ClockTest, WaitsLastTheirTimeAndRestMeanwhile) {
    const auto processor = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;  // ms
    };
    const double before = processor();
    for (int i = 0; i < 20; ++i) {
        const std::uint32_t start = timeGetTime();
        WaitMs(10);
        EXPECT_GT(timeGetTime() - start, 10u);
    }
    EXPECT_LT(processor() - before, 20 * 11 * 0.1);
}

}  // namespace
