// Games as links: short, exact, and harmless whatever they hold.
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "recording/link.h"
#include "simulation.h"
#include "test_game.h"
#include "toolkit/deflate.h"

namespace {

Recording Recorded(const char* name) {
    Recording recording;
    EXPECT_EQ("", ReadRecording(std::string(TARNVEIL_TESTS) + "/runs/" + name + ".txt", recording));
    return recording;
}

class LinkTest : public GameTest {};

}  // namespace

TEST_F(LinkTest, AWonGameFitsFourThousandCharactersAndAgreesAtItsEnd) {
    UseFolder(true);
    const Recording recording = Recorded("nomal-game");
    const std::string link = LinkOf(recording);
    EXPECT_LE(link.size(), 4000u);
    Recording read;
    ASSERT_EQ("", ReadRecording("https://example.org/game/#run=" + link, read));
    Recording wanted = recording;
    wanted.frames.clear();
    EXPECT_EQ(wanted, read);
    SimReport report;
    EXPECT_EQ("", VerifyRecording(read, false, report));
    EXPECT_EQ(recording.endScore, report.score);
    read.events.erase(read.events.begin() + 200);
    EXPECT_NE("", VerifyRecording(read, false, report)) << "another game is not taken for this one";
}

TEST_F(LinkTest, EveryKindOfEventKeepsItsPlaceInTime) {
    Recording recording;
    recording.options[&MainFormType::Menu008] = true;
    recording.held = {{VK_X, true, false}, {200, true, true}};
    recording.endFrames = 90000;
    recording.endDigest = 7;
    using Kind = InputEvent::Kind;
    const InputEvent stick{Kind::joystick, 1, 0, 65535, 3};
    const InputEvent item{.kind = Kind::menu, .item = "Menu006"};
    recording.events = {{{0, 0}, {Kind::keyUp, VK_X}},
                        {{0, 3}, {Kind::keyDown, VK_X}},
                        {{1, 0}, stick},
                        {{15, 0}, item},
                        {{16, 2}, {Kind::keyDown, VK_X}},  // pressed though it is down
                        {{16, 1400}, {Kind::allKeysUp}},
                        {{80000, 0}, {Kind::joystickOff, 1}},
                        {{80000, 0}, {Kind::keyDown, 200}},
                        {{80000, 1}, {Kind::keyUp, VK_ESCAPE}}};
    Recording read;
    ASSERT_EQ("", ParseLink(LinkOf(recording), read));
    EXPECT_EQ(recording, read);
}

TEST_F(LinkTest, DamagedForeignAndOversizedLinksAreRefusedWithWords) {
    Recording tooLong = Recorded("easy-stage1");
    tooLong.endFrames = kMostLinkFrames + 1;
    EXPECT_EQ("", LinkOf(tooLong));
    Recording kept;
    kept.seed = 5;
    const std::vector<std::uint8_t> bomb = Deflate(std::vector<std::uint8_t>(1u << 20));
    EXPECT_FALSE(Inflate(bomb, 1u << 16));
    const std::string good = LinkOf(Recorded("easy-stage1"));
    for (const std::string& link :
         {std::string(), std::string("A"), std::string("B") + good.substr(1), good + "!",
          good.substr(0, good.size() / 2), std::string(kLongestLink + 1, 'A'), std::string("A") + good}) {
        EXPECT_NE("", ParseLink(link, kept)) << link.substr(0, 40);
    }
    EXPECT_EQ(5u, kept.seed) << "a refused link changes nothing";
    std::mt19937 random(1);
    int refused = 0;
    for (int i = 0; i < 300; ++i) {
        std::string link = good;
        link[1 + random() % (link.size() - 1)] = static_cast<char>('a' + random() % 26);
        refused += ParseLink(link, kept) != "";
    }
    EXPECT_GT(refused, 200) << "deflate's sum tells most";
}
