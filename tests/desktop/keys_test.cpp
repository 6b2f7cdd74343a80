// Keys: from the window system's names to virtual keys, and what happens to keys that are down.
#include <QtWidgets/QLineEdit>

#include "desktop_test.h"
#include "host/desktop/key_map.h"
#include "toolkit/input_state.h"

using desktop::NativeKey;
using desktop::VirtualKeyOf;
using Kind = InputEvent::Kind;

namespace {

constexpr NativeKey kArrowLeft{0xFF51, 113, Qt::Key_Left};
constexpr NativeKey kKeypadLeft{0xFF96, 83, Qt::Key_Left};

TEST(KeyMap, FindsTheGamesKeysWhateverTheShiftAndLockStates) {
    const struct {
        const char* what;
        NativeKey key;
        int expected;
    } cases[] = {
        {"x", {'x', 53, Qt::Key_X}, VK_X},
        {"X with shift or caps lock", {'X', 53, Qt::Key_X}, VK_X},
        {"z", {'z', 52, Qt::Key_Z}, VK_Z},
        {"Z", {'Z', 52, Qt::Key_Z}, VK_Z},
        {"kana lock: SA on the X key", {0x04BB, 53, 0x30B5}, VK_X},
        {"kana lock: TSU on the Z key", {0x04C2, 52, 0x30C4}, VK_Z},
        {"Cyrillic che on the X key", {0x06DE, 53, 0x0427}, VK_X},
        {"z where German keyboards have it", {'z', 29, Qt::Key_Z}, VK_Z},
        {"keypad left", kKeypadLeft, VK_LEFT},
        {"keypad down", {0xFF99, 88, Qt::Key_Down}, VK_DOWN},
        {"up", {0xFF52, 111, Qt::Key_Up}, VK_UP},
        {"right", {0xFF53, 114, Qt::Key_Right}, VK_RIGHT},
        {"space", {' ', 65, Qt::Key_Space}, VK_SPACE},
        {"escape", {0xFF1B, 9, Qt::Key_Escape}, VK_ESCAPE},
        {"no native names", {0, 0, Qt::Key_X}, VK_X},
    };
    for (const auto& each : cases) EXPECT_EQ(each.expected, VirtualKeyOf(each.key)) << each.what;
}

TEST(KeyMap, LeavesOtherKeysAlone) {
    const struct {
        const char* what;
        NativeKey key;
    } cases[] = {
        {"y on the Z key of a German keyboard", {'y', 52, Qt::Key_Y}},
        {"w on the Z key of a French keyboard", {'w', 52, Qt::Key_W}},
        {"semicolon on the Z key of a Dvorak keyboard", {';', 52, Qt::Key_Semicolon}},
        {"a grave on the Z key", {0xE0, 52, Qt::Key_Agrave}},
        {"a dead key on the X key", {0xFE50, 53, Qt::Key_Dead_Grave}},
        {"kana on another key", {0x04B1, 12, 0x30A2}},
        {"keypad 4 with number lock", {0xFFB4, 83, Qt::Key_4}},
        {"return", {0xFF0D, 36, Qt::Key_Return}},
    };
    for (const auto& each : cases) EXPECT_EQ(0, VirtualKeyOf(each.key)) << each.what;
}

TEST(KeyboardTest, TwoKeysOfOneCodeCountAsOne) {
    desktop::Keyboard keyboard;
    std::vector<InputEvent> events;
    keyboard.Press(kArrowLeft, events);
    keyboard.Press(kKeypadLeft, events);
    keyboard.Release(kArrowLeft, events);
    EXPECT_EQ((std::vector<InputEvent>{{Kind::keyDown, VK_LEFT}}), events);
    keyboard.Release(kKeypadLeft, events);
    EXPECT_EQ((InputEvent{Kind::keyUp, VK_LEFT}), events.back());
    EXPECT_EQ(2u, events.size());
}

TEST(KeyboardTest, AKeyComesUpAsWhatItWentDown) {
    desktop::Keyboard keyboard;
    std::vector<InputEvent> events;
    keyboard.Press({'x', 53, Qt::Key_X}, events);
    keyboard.Release({0x00B1, 53, Qt::Key_plusminus}, events);  // AltGr went down meanwhile
    EXPECT_EQ((std::vector<InputEvent>{{Kind::keyDown, VK_X}, {Kind::keyUp, VK_X}}), events);
}

TEST(KeyboardTest, AfterTheKeyboardWasLostAReleaseIsNoNews) {
    desktop::Keyboard keyboard;
    std::vector<InputEvent> events;
    keyboard.Press(kArrowLeft, events);
    keyboard.ReleaseAll(events);
    keyboard.Release(kArrowLeft, events);
    EXPECT_EQ((std::vector<InputEvent>{{Kind::keyDown, VK_LEFT}, {Kind::allKeysUp}}), events);
    keyboard.Press(kArrowLeft, events);
    EXPECT_EQ((InputEvent{Kind::keyDown, VK_LEFT}), events.back());
}

TEST(KeyboardTest, WhenTheKeyboardComesBackEscCountsFromItsNextPressOn) {
    constexpr NativeKey kEscape{0xFF1B, 9, Qt::Key_Escape};
    desktop::Keyboard keyboard;
    std::vector<InputEvent> events;
    keyboard.Resume({kArrowLeft, kEscape}, events);
    keyboard.Release(kEscape, events);  // a repeat that looks like a release and a press
    keyboard.Press(kEscape, events);
    EXPECT_EQ((std::vector<InputEvent>{{Kind::keyDown, VK_LEFT}}), events);
    keyboard.KeepOnly({kArrowLeft.scan}, events);
    EXPECT_EQ(1u, events.size());
    keyboard.Press(kEscape, events);
    EXPECT_EQ((InputEvent{Kind::keyDown, VK_ESCAPE}), events.back());
    keyboard.KeepOnly({kEscape.scan}, events);
    EXPECT_EQ((InputEvent{Kind::keyUp, VK_LEFT}), events.back()) << "a lost release";
}

class KeysTest : public DesktopTest {};

TEST_F(KeysTest, PressesAndReleasesComeInOrder) {
    QTest::keyPress(&View(), Qt::Key_Left);
    QTest::keyClick(&View(), Qt::Key_X);
    QTest::keyRelease(&View(), Qt::Key_Left);
    const std::vector<InputEvent> expected{
        {Kind::keyDown, VK_LEFT}, {Kind::keyDown, VK_X}, {Kind::keyUp, VK_X}, {Kind::keyUp, VK_LEFT}};
    EXPECT_EQ(expected, Pump());
    EXPECT_TRUE(Pump().empty());
}

TEST_F(KeysTest, AutoRepeatIsNotReported) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ", true);
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier, " ", true);
    QTest::keyPress(&View(), Qt::Key_Space);
    Pump();
    QApplication::sendEvent(&View(), &release);
    QApplication::sendEvent(&View(), &press);
    EXPECT_TRUE(Pump().empty());
    QTest::keyRelease(&View(), Qt::Key_Space);
    Pump();
    QApplication::sendEvent(&View(), &press);
    EXPECT_TRUE(Pump().empty()) << "held while a menu was open";
    QKeyEvent left(QEvent::KeyPress, Qt::Key_Left, Qt::NoModifier, {}, true);
    QApplication::sendEvent(&View(), &left);
    EXPECT_EQ((std::vector<InputEvent>{{Kind::keyDown, VK_LEFT}}), Pump()) << "a repeat shows that it is down";
}

TEST_F(KeysTest, LosingTheFocusReleasesAllKeys) {
    QTest::keyPress(&View(), Qt::Key_Left);
    QLineEdit elsewhere;
    elsewhere.show();
    elsewhere.activateWindow();
    elsewhere.setFocus();
    const auto events = Pump();
    ASSERT_EQ(2u, events.size());
    EXPECT_EQ((InputEvent{Kind::keyDown, VK_LEFT}), events[0]);
    EXPECT_EQ(Kind::allKeysUp, events[1].kind);
    QTest::keyClick(&elsewhere, Qt::Key_X);
    EXPECT_TRUE(Pump().empty()) << "a key typed elsewhere reached the game";
}

TEST_F(KeysTest, KeysOfAMenuAreNotTheGames) {
    Later(20, [] { QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Down); });
    Later(40, [] { QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape); });
    Menus().ActionOf("Menu001")->menu()->popup(QPoint(0, 0));
    for (const InputEvent& event : Pump()) EXPECT_EQ(Kind::allKeysUp, event.kind);
}

TEST_F(KeysTest, InputMethodsDoNotGetTheGamesKeys) {
    EXPECT_FALSE(View().testAttribute(Qt::WA_InputMethodEnabled));
    EXPECT_TRUE(View().hasFocus());
}

}  // namespace
