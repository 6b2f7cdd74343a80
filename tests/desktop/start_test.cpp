// The start of the program: its command line and its folder.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>

#include "desktop_test.h"
#include "host/clock.h"
#include "host/desktop/options.h"
#include "host/desktop/program_folder.h"

namespace fs = std::filesystem;
using desktop::ParseOptions;

namespace {

TEST(OptionsTest, ReadsEveryOptionInBothForms) {
    const auto options = ParseOptions({"--folder", "/a b", "--seed=18446744073709551615", "--author"});
    EXPECT_EQ("", options.error);
    EXPECT_EQ("/a b", options.folder);
    EXPECT_EQ(18446744073709551615u, options.seed);
    EXPECT_TRUE(options.author);
    EXPECT_FALSE(options.help || options.version);
    EXPECT_EQ("f.sf2", ParseOptions({"--soundfont=f.sf2"}).soundFont);
    EXPECT_TRUE(ParseOptions({"--help"}).help);
    EXPECT_TRUE(ParseOptions({"--version"}).version);
    EXPECT_FALSE(ParseOptions({}).seed.has_value());
}

TEST(OptionsTest, RefusesWhatItDoesNotUnderstand) {
    const std::map<std::string, std::vector<std::string_view>> cases{
        {"--wait: there is no such option", {"--wait"}},       {"file: there is no such option", {"file"}},
        {"--folder: needs a value", {"--author", "--folder"}}, {"--folder: that value is no good", {"--folder="}},
        {"--author: takes no value", {"--author=yes"}},        {"--seed: that value is no good", {"--seed", "12x"}},
    };
    for (const auto& [error, line] : cases) EXPECT_EQ(error, ParseOptions(line).error);
    for (const auto* seed : {"", "-1", "x", "18446744073709551616", " 1"}) {
        EXPECT_NE("", ParseOptions({"--seed", seed}).error) << seed;
    }
}

TEST(OptionsTest, RefusesOptionsThatDoNotGoTogether) {
    EXPECT_EQ("--record and --replay do not go together", ParseOptions({"--record=a", "--replay=b"}).error);
    EXPECT_EQ("--any-data: goes with --replay only", ParseOptions({"--any-data"}).error);
    EXPECT_EQ("--fast: goes with --replay only", ParseOptions({"--fast", "--record=a"}).error);
    EXPECT_EQ("--screenshots: goes with --replay only", ParseOptions({"--screenshots=d"}).error);
    EXPECT_EQ("", ParseOptions({"--fast", "--any-data", "--screenshots=d", "--replay=b"}).error);
    EXPECT_EQ("", ParseOptions({"--record=a"}).error);
}

TEST(OptionsTest, HelpNamesEveryOption) {
    for (const auto* name : {"--folder DIR", "--author", "--seed N", "--soundfont FILE", "--record FILE",
                             "--replay FILE", "--any-data", "--fast", "--screenshots DIR", "--help", "--version"}) {
        EXPECT_NE(std::string::npos, desktop::HelpText().find(name)) << name;
    }
}

class FolderTest : public testing::Test {
  protected:
    FolderTest() {
        fs::create_directories(Data());
        for (const auto* name : kTables) Write(Data() / name, "shipped");
        Write(Data() / "Wave1.wav", "wave");
        setenv("TARNVEIL_DATA", Data().c_str(), 1);
    }
    ~FolderTest() override { unsetenv("TARNVEIL_DATA"); }

    static constexpr const char* kTables[] = {"STAGE1.DAT", "STAGE2.DAT",    "STAGE3.DAT",
                                              "Attack.DAT", "EnemyData.DAT", "EneMove.DAT"};
    fs::path Data() const { return root_.path / "data"; }
    fs::path Bin() const { return root_.path / "bin"; }
    fs::path User() const { return root_.path / "home" / "share" / "tarnveil"; }
    static void Write(const fs::path& path, const std::string& text) { std::ofstream(path) << text; }
    static std::string Read(const fs::path& path) {
        std::ifstream file(path);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    static std::size_t Count(const fs::path& folder) {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), {}));
    }
    void FillBin() {
        fs::create_directories(Bin());
        for (const auto* name : kTables) Write(Bin() / name, "own");
    }

  private:
    TemporaryFolder root_;
};

TEST_F(FolderTest, TheFirstStartFillsTheUsersFolder) {
    EXPECT_EQ(User(), desktop::ChooseFolder(Bin(), User()));
    for (const auto* name : kTables) EXPECT_EQ("shipped", Read(User() / name));
    EXPECT_EQ("wave", Read(User() / "Wave1.wav"));
    EXPECT_EQ(7u, Count(User())) << "something else was left behind";
}

TEST_F(FolderTest, OnlyWhatIsMissingIsFilledIn) {
    fs::create_directories(User());
    Write(User() / "STAGE1.DAT", "the author's");
    Write(User() / "Wave1.wav", "");
    desktop::ChooseFolder(Bin(), User());
    EXPECT_EQ("the author's", Read(User() / "STAGE1.DAT"));
    EXPECT_EQ("", Read(User() / "Wave1.wav"));
    EXPECT_EQ("shipped", Read(User() / "STAGE2.DAT"));
}

TEST_F(FolderTest, AnExecutableBesideItsTablesUsesThem) {
    FillBin();
    EXPECT_EQ(Bin(), desktop::ChooseFolder(Bin(), User()));
    EXPECT_FALSE(fs::exists(User()));
    fs::remove(Bin() / "Attack.DAT");
    EXPECT_EQ(User(), desktop::ChooseFolder(Bin(), User())) << "one table is missing";
}

TEST_F(FolderTest, AnExecutablesFolderThatCannotBeWrittenIsNotUsed) {
    if (geteuid() == 0) GTEST_SKIP() << "root may write everywhere";
    FillBin();
    fs::permissions(Bin(), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(User(), desktop::ChooseFolder(Bin(), User()));
    fs::permissions(Bin(), fs::perms::owner_all);
}

TEST_F(FolderTest, WhatCannotBeFilledInIsTold) {
    Write(User().parent_path().parent_path(), "");  // a file where a folder must be
    const auto problems = desktop::FillFolder(User(), Data());
    ASSERT_EQ(1u, problems.size());
    EXPECT_NE(std::string::npos, problems[0].find(User().string()));
}

TEST_F(FolderTest, TheDataIsLookedForBesideTheProgramAndInTheSourceTree) {
    unsetenv("TARNVEIL_DATA");
    EXPECT_EQ(fs::canonical(fs::path(TARNVEIL_ASSETS) / "data"),
              fs::canonical(desktop::FirstFolder(desktop::DataCandidates(Bin()))));
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

}  // namespace
