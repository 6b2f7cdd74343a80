// Files on the disk: saving, sets of files, and the player's folder over the shipped data.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <set>

#include "host/file_sets.h"
#include "stage/data_files.h"
#include "test_game.h"
#include "toolkit/folder.h"

namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;

class FilesTest : public GameTest {
  protected:
    static Bytes Of(std::string_view text) { return {text.begin(), text.end()}; }
    std::string Path(const std::string& name) const { return (folder / name).string(); }
    void Put(const std::string& name, std::string_view text) { std::ofstream(folder / name) << text; }
    std::string Get(const std::string& name) const {
        const Bytes bytes = ReadWholeFile(Path(name)).bytes;
        return {bytes.begin(), bytes.end()};
    }
    std::string Save(const std::string& name, std::string_view text) { return WriteWholeFile(Path(name), Of(text)); }
    std::set<std::string> Names() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder)) names.insert(entry.path().filename());
        return names;
    }

    fs::path folder = UseFolder(false);
};

TEST_F(FilesTest, OnlyPlainFilesAreReplaced) {
    mkfifo(Path("pipe").c_str(), 0666);
    fs::create_directory(folder / "folder");
    fs::create_symlink("/dev/null", folder / "device");
    fs::create_symlink("loop", folder / "loop");
    const int socketFile = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un name{AF_UNIX, {}};
    Path("socket").copy(name.sun_path, sizeof name.sun_path - 1);
    ASSERT_EQ(0, bind(socketFile, reinterpret_cast<sockaddr*>(&name), sizeof name));
    close(socketFile);
    EXPECT_EQ("it is a pipe and no plain file", Save("pipe", "new"));
    EXPECT_EQ("it is a folder and no plain file", Save("folder", "new"));
    EXPECT_EQ("it is a device and no plain file", Save("device", "new"));
    EXPECT_EQ("it is a socket and no plain file", Save("socket", "new"));
    EXPECT_NE("", Save("loop", "new"));
    EXPECT_EQ((std::set<std::string>{"pipe", "folder", "device", "loop", "socket"}), Names());
    for (const char* odd : {"pipe", "folder", "device", "socket"}) {
        EXPECT_EQ(FileError::unreadable, ReadWholeFile(Path(odd)).error) << odd;
        EXPECT_NE("", WriteFolderFile(odd, Of("new")));
    }
}

TEST_F(FilesTest, LinksAreFollowedAlsoToWhatIsNotThereYet) {
    fs::create_directory(folder / "far");
    Put("far/old", "old");
    fs::create_symlink("far/old", folder / "a");
    fs::create_symlink("a", folder / "b");
    fs::create_symlink(folder / "far" / "none", folder / "c");
    EXPECT_EQ("", Save("b", "new"));
    EXPECT_EQ("", Save("c", "made"));
    EXPECT_EQ("new", Get("far/old"));
    EXPECT_EQ("made", Get("far/none"));
    for (const char* link : {"a", "b", "c"}) EXPECT_TRUE(fs::is_symlink(folder / link)) << link;
}

TEST_F(FilesTest, PermissionsAndOwnersStay) {
    const mode_t before = umask(077);
    for (const mode_t mode : {0666u, 0640u, 0600u, 0755u}) {
        Put("file", "old");
        chmod(Path("file").c_str(), mode);
        const bool foreign = geteuid() == 0 && chown(Path("file").c_str(), 12, 34) == 0;
        EXPECT_EQ("", Save("file", "new"));
        struct stat info {};
        ASSERT_EQ(0, stat(Path("file").c_str(), &info));
        EXPECT_EQ(mode, info.st_mode & 07777u);
        EXPECT_EQ(foreign ? 12u : geteuid(), info.st_uid);
        if (foreign) EXPECT_EQ(34u, info.st_gid);
    }
    umask(022);
    EXPECT_EQ("", Save("fresh", "new"));
    EXPECT_EQ(fs::perms(0644), fs::status(folder / "fresh").permissions());
    umask(before);
}

// A disk that takes no more than a few bytes.
TEST_F(FilesTest, WhatHasNoRoomLeavesTheOldFile) {
    Put("file", "old");
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit few{100, before.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &few);
    const std::string reason = Save("file", std::string(1000, 'x')), fresh = Save("fresh", std::string(1000, 'x'));
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ("File too large", reason);
    EXPECT_EQ("File too large", fresh);
    EXPECT_EQ("old", Get("file"));
    EXPECT_EQ((std::set<std::string>{"file"}), Names());
}

// `work` again and again in a process of its own, which is killed after `microseconds`.
void KillAtWork(useconds_t microseconds, const std::function<void()>& work) {
    const pid_t worker = fork();
    while (worker == 0) work();
    usleep(microseconds);
    kill(worker, SIGKILL);
    waitpid(worker, nullptr, 0);
}

TEST_F(FilesTest, AKilledSaveLeavesAWholeFileAndTheNextOneNothingElse) {
    const std::string old(100'000, 'a'), fresh(120'000, 'b');
    Put("file.1.new", "");          // of a process that is dead
    Put("file.notes.new", "mine");  // of somebody else
    for (useconds_t round = 0; round < 40; ++round) {
        ASSERT_EQ("", Save("file", old));
        KillAtWork(500 + round * 173, [&] {
            if (!Save("file", fresh).empty() || !Save("file", old).empty()) _exit(1);
        });
        const std::string left = Get("file");
        ASSERT_TRUE(left == old || left == fresh) << "round " << round;
    }
    ASSERT_EQ("", Save("file", old));
    EXPECT_EQ((std::set<std::string>{"file", "file.notes.new"}), Names());
}

TEST_F(FilesTest, ASetIsReadAllOldOrAllNewAlsoWhenItsWriterWasKilled) {
    const std::vector<NamedBytes> sets[] = {{{"A.DAT", Bytes(5000, 1)}, {"B.DAT", Bytes(90'000, 1)}, {"C.DAT", {1}}},
                                            {{"A.DAT", Bytes(6000, 2)}, {"B.DAT", Bytes(90'000, 2)}, {"C.DAT", {2}}}};
    for (useconds_t round = 0; round < 40; ++round) {
        KillAtWork(500 + round * 311, [&] {
            for (const auto& set : sets) {
                if (!WriteFileSet(folder.string(), set).empty()) _exit(1);
            }
        });
        if (Names().count("C.DAT") == 0) continue;  // killed before the first
        const std::uint8_t which = ReadFolderFile("C.DAT").bytes.at(0);
        for (const auto& [name, bytes] : sets[which - 1]) {
            ASSERT_EQ(bytes, ReadFolderFile(name).bytes) << name << ", round " << round;
        }
    }
    EXPECT_EQ("", WriteFileSet(folder.string(), sets[0]));
    EXPECT_EQ((std::set<std::string>{"A.DAT", "B.DAT", "C.DAT"}), Names());
}

TEST_F(FilesTest, AJournalIsCompletedByWhoeverReadsOrWritesNext) {
    for (const bool reads : {true, false}) {
        Put("A.DAT", "new");  // the first has its content already
        Put("B.DAT", "old");
        Put("build.journal", "3 A.DAT\nnew5 B.DAT\n1\n3 x");
        EXPECT_EQ("", reads ? ReadFolderFile("\\A.DAT").reason : WriteFolderFile("\\A.DAT", Of("own")));
        EXPECT_EQ("1\n3 x", Get("B.DAT"));
        EXPECT_EQ(reads ? "new" : "own", Get("A.DAT"));
        EXPECT_FALSE(fs::exists(folder / "build.journal"));
    }
    for (const char* damaged : {"4 A.DAT\nnew", "x", "3 ../A.DAT\nnew", "-1 A\n", "3 A.DAT"}) {
        Put("build.journal", damaged);
        EXPECT_NE(std::string::npos, ReadFolderFile("\\A.DAT").reason.find("build.journal: a build")) << damaged;
        EXPECT_EQ("own", Get("A.DAT"));
    }
}

class OverlayTest : public FilesTest {
  protected:
    OverlayTest() { SetProgramFolder(Path("home/own"), TARNVEIL_ASSETS "/data"); }
};

TEST_F(OverlayTest, TheShippedFileIsReadUntilThereIsAnOwnOne) {
    ASSERT_EQ("", ReadEnemyData());
    const Integer shipped = game.EnemyData[0].SX;
    EXPECT_EQ(TARNVEIL_ASSETS "/data/Stage1.mid", FolderPath("\\Stage1.mid"));
    EXPECT_EQ(Path("home/own") + "/none", FolderPath("\\none"));
    EXPECT_FALSE(fs::exists(folder / "home")) << "reading makes nothing";
    game.EnemyData[0].SX = 77;
    ASSERT_EQ("", WriteEnemyData());
    EXPECT_EQ((std::set<std::string>{"home"}), Names());
    game.EnemyData[0].SX = 0;
    ASSERT_EQ("", ReadEnemyData());
    EXPECT_EQ(77, game.EnemyData[0].SX);
    SetProgramFolder(TARNVEIL_ASSETS "/data");
    ASSERT_EQ("", ReadEnemyData());
    EXPECT_EQ(shipped, game.EnemyData[0].SX);
}

TEST_F(OverlayTest, ANewFileKeepsTheTailOfTheShippedOneItHides) {
    fs::create_directory(folder / "shipped");
    Put("shipped/long", "shipped and more");
    SetProgramFolder(Path("home"), Path("shipped"));
    EXPECT_EQ("", WriteFolderFile("\\long", Of("changed")));
    EXPECT_EQ("changed and more", Get("home/long"));
    EXPECT_EQ("shipped and more", Get("shipped/long"));
}

// Something else stands where the player's folder would be made: as for any folder that cannot be written.
TEST_F(OverlayTest, AFolderThatCannotBeMadeRefusesWhatIsWrittenAndLetsTheRestBeRead) {
    Put("home", "");
    EXPECT_EQ("", ReadStageData("\\STAGE1.DAT") + ReadEnemyData() + ReadEneMove());
    EXPECT_NE("", WriteFolderFile("\\Scores.DAT", Of("0123456789abcdef")));
    EXPECT_NE("", WriteEnemyData());
}

}  // namespace
