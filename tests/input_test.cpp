// Keys, directions, the joystick and the menu bar.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "host/window.h"
#include "platform/events.h"
#include "platform/joystick_input.h"
#include "platform/keyboard_input.h"
#include "test_game.h"

using InputTest = GameTest;

namespace {

struct KeysAndCode {
    std::vector<int> keys;
    int code;
};

}  // namespace

TEST_F(InputTest, HeldArrowKeysGiveTheDirectionTheLastMatchingTestNames) {
    const KeysAndCode cases[] = {
        {{}, 0},
        {{VK_UP}, 1},
        {{VK_UP, VK_RIGHT}, 2},
        {{VK_RIGHT}, 3},
        {{VK_DOWN, VK_RIGHT}, 4},
        {{VK_DOWN}, 5},
        {{VK_DOWN, VK_LEFT}, 6},
        {{VK_LEFT}, 7},
        {{VK_UP, VK_LEFT}, 8},
        {{VK_UP, VK_DOWN}, 5},
        {{VK_LEFT, VK_RIGHT}, 7},
        {{VK_UP, VK_RIGHT, VK_LEFT}, 8},
        {{VK_UP, VK_DOWN, VK_LEFT, VK_RIGHT}, 6},
    };
    for (const auto& [keys, code] : cases) {
        ResetInputState();
        for (const int key : keys) headless::KeyDown(key);
        DoEvents();
        EXPECT_EQ(code, GetKeyDirection());
        EXPECT_EQ(code, GetKeyDirection()) << "still held";
    }
}

TEST_F(InputTest, ATappedKeyCountsOnceAndAutoRepeatDoesNotCountAgain) {
    headless::Tap(VK_UP);
    DoEvents();
    EXPECT_EQ(1, GetKeyDirection());
    EXPECT_EQ(0, GetKeyDirection());

    headless::KeyDown(VK_X);
    DoEvents();
    EXPECT_EQ(static_cast<std::int16_t>(0x8001), GetAsyncKeyState(VK_X));
    headless::KeyDown(VK_X);
    DoEvents();
    EXPECT_EQ(static_cast<std::int16_t>(0x8000), GetAsyncKeyState(VK_X));
}

TEST_F(InputTest, LosingTheKeyboardLetsAllKeysGoButKeepsTaps) {
    headless::KeyDown(VK_LEFT);
    host.events.push_back({InputEvent::Kind::allKeysUp});
    DoEvents();
    EXPECT_EQ(1, GetAsyncKeyState(VK_LEFT));
    EXPECT_EQ(0, GetAsyncKeyState(VK_LEFT));
    EXPECT_EQ(0, GetAsyncKeyState(-1));
    EXPECT_EQ(0, GetAsyncKeyState(256));
}

TEST_F(InputTest, ProbeTakesTheFirstJoystickThatAnswersAndItsRestPosition) {
    InitJoystick();
    EXPECT_EQ(False, game.JoyUse);
    EXPECT_TRUE(std::ranges::equal(std::array{0, 1, 2, 4, 8}, game.JoyButtonMask));

    headless::MoveJoystick(1, 30000, 31000);
    DoEvents();
    InitJoystick();
    EXPECT_EQ(True, game.JoyUse);
    EXPECT_EQ(1, game.JoyId);
    EXPECT_EQ(30000, game.JoyCenterX);
    EXPECT_EQ(31000, game.JoyCenterY);

    headless::MoveJoystick(0, 5, 6);
    DoEvents();
    InitJoystick();
    EXPECT_EQ(0, game.JoyId);
    EXPECT_EQ(5, game.JoyCenterX);
}

TEST_F(InputTest, AnyDifferenceFromTheRestPositionIsADirection) {
    headless::MoveJoystick(0, 100, 100);
    DoEvents();
    InitJoystick();
    const int codes[3][3] = {{8, 1, 2}, {7, 0, 3}, {6, 5, 4}};
    for (int y = 0; y < 3; ++y) {
        for (int x = 0; x < 3; ++x) {
            headless::MoveJoystick(0, static_cast<unsigned>(99 + x), static_cast<unsigned>(99 + y), 2);
            DoEvents();
            EXPECT_EQ(codes[y][x], GetJoyDirection());
        }
    }
    EXPECT_FALSE(GetJoyButton(0));
    EXPECT_FALSE(GetJoyButton(1));
    EXPECT_TRUE(GetJoyButton(2));
    EXPECT_FALSE(GetJoyButton(5));
    EXPECT_FALSE(GetJoyButton(-1));

    host.events.push_back({InputEvent::Kind::joystickOff, 0});
    DoEvents();
    EXPECT_EQ(8, GetJoyDirection()) << "a joystick that has gone reads 0, 0";
    EXPECT_FALSE(GetJoyButton(2));
    game.JoyUse = False;
    EXPECT_EQ(0, GetJoyDirection());
}

TEST_F(InputTest, JoystickMenuSwitchesAndProbesAnew) {
    headless::ClickMenuItem("Menu008");
    DoEvents();
    EXPECT_FALSE(MainForm.Menu008.Checked);
    ASSERT_EQ(1u, host.messages.size());
    EXPECT_EQ("ジョイスティックを検出出来ませんでした", host.messages[0]);

    headless::MoveJoystick(0, 40000, 1);
    headless::ClickMenuItem("Menu008");
    DoEvents();
    EXPECT_TRUE(MainForm.Menu008.Checked);
    EXPECT_EQ(40000, game.JoyCenterX);
    headless::ClickMenuItem("Menu008");
    DoEvents();
    EXPECT_FALSE(MainForm.Menu008.Checked);
    EXPECT_EQ(False, game.JoyUse);
    EXPECT_EQ(1u, host.messages.size());
}

TEST_F(InputTest, DifficultyAndPlayAreRadioGroupsWithTheirVariables) {
    struct Choice {
        const char* item;
        int level, digest;
    };
    for (const auto& [item, level, digest] : {Choice{"MENU101", 1, 0},
                                              {"MENU103", 5, 0},
                                              {"MENU102", 2, 0},
                                              {"MENU102", 2, 0},
                                              {"Menu402", 2, 2},
                                              {"Menu404", 2, 4},
                                              {"Menu403", 2, 3},
                                              {"Menu401", 2, 0}}) {
        headless::ClickMenuItem(item);
        DoEvents();
        EXPECT_EQ(level, game.Level) << item;
        EXPECT_EQ(digest, game.DigestMode) << item;
        EXPECT_TRUE(FindMenuItem(item)->Checked);
        EXPECT_EQ(1, MainForm.MENU101.Checked + MainForm.MENU102.Checked + MainForm.MENU103.Checked);
        EXPECT_EQ(1, MainForm.Menu401.Checked + MainForm.Menu402.Checked + MainForm.Menu403.Checked +
                         MainForm.Menu404.Checked);
    }
}

TEST_F(InputTest, SwitchedOffItemsAndItemsOfSwitchedOffPopupsDoNothing) {
    headless::ClickMenuItem("Menu003");
    headless::ClickMenuItem("Menu201");
    MainForm.MENU100.Enabled = false;
    headless::ClickMenuItem("MENU103");
    DoEvents();
    EXPECT_FALSE(MainForm.Menu003.Checked);
    EXPECT_TRUE(host.modals.empty());
    EXPECT_EQ(2, game.Level);

    EnableAuthorMenus();
    headless::ClickMenuItem("Menu003");
    headless::ClickMenuItem("Menu201");
    DoEvents();
    EXPECT_TRUE(MainForm.Menu003.Checked);
    EXPECT_EQ(1u, host.modals.size());
}

TEST_F(InputTest, QuittingAndClosingCloseTheMusicAndEndTheProgram) {
    headless::ClickMenuItem("Menu303");
    EXPECT_THROW(DoEvents(), EndProgram);
    EXPECT_EQ((std::vector<std::string>{"stop", "close"}), host.audio);
    host.audio.clear();
    host.events.push_back({InputEvent::Kind::closeWindow});
    EXPECT_THROW(DoEvents(), EndProgram);
    EXPECT_EQ(std::vector<std::string>{"close"}, host.audio);
}

TEST_F(InputTest, TheWindowStartsAsDesigned) {
    EXPECT_EQ(324, MainForm.Crt.Width);
    EXPECT_EQ(320, MainForm.Crt.imageWidth);
    EXPECT_EQ(480, MainForm.Crt.imageHeight);
    EXPECT_EQ(484, MainForm.B_Crt.Height);
    EXPECT_EQ(330, MainForm.Width);
    EXPECT_EQ(528, MainForm.Height);
    EXPECT_EQ(25u, kMenuBar.size());
    EXPECT_EQ(&MainForm.Menu300, PopupOf(MainForm.Menu303));
    EXPECT_EQ(&MainForm.Menu200, PopupOf(MainForm.Menu203));
    EXPECT_EQ(nullptr, PopupOf(MainForm.Menu001));
}
