// Joysticks, with SDL's virtual ones.
#include <SDL2/SDL.h>
#include <gtest/gtest.h>

#include "desktop_test.h"
#include "host/desktop/joystick_axis.h"
#include "host/desktop/joysticks.h"
#include "platform/joystick_input.h"
#include "state/state.h"
#include "toolkit/input_state.h"

using desktop::CalibratedAxis;
using Kind = InputEvent::Kind;

namespace {

TEST(JoystickAxis, RestsSteadilyAndReachesBothEnds) {
    for (const int trembling : {0, 1, -1, 500, -500, 4900, -4900}) EXPECT_EQ(32767u, CalibratedAxis(trembling));
    EXPECT_EQ(0u, CalibratedAxis(-32768));
    EXPECT_EQ(65535u, CalibratedAxis(32767));
}

TEST(JoystickAxis, LeavesTheNeutralZoneWithoutAJump) {
    EXPECT_NEAR(32767, static_cast<int>(CalibratedAxis(4920)), 10);
    EXPECT_NEAR(32767, static_cast<int>(CalibratedAxis(-4920)), 10);
    for (int raw = -32768; raw < 32767; ++raw) ASSERT_LE(CalibratedAxis(raw), CalibratedAxis(raw + 1)) << raw;
    EXPECT_LT(CalibratedAxis(-5500), 32767u);
    EXPECT_GT(CalibratedAxis(5500), 32767u);
}

// A stick with two axes, four buttons and a hat. Real devices may be there too: only its own slot is looked at.
class VirtualStick {
  public:
    VirtualStick() : index_(SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_GAMECONTROLLER, 2, 4, 1)) {
        stick_ = SDL_JoystickOpen(index_);
        instance_ = SDL_JoystickInstanceID(stick_);
    }
    ~VirtualStick() { Detach(); }
    VirtualStick(const VirtualStick&) = delete;
    VirtualStick& operator=(const VirtualStick&) = delete;

    void Detach() {
        if (!stick_) return;
        SDL_JoystickClose(stick_);
        stick_ = nullptr;
        for (int index = 0; index < SDL_NumJoysticks(); ++index) {
            if (SDL_JoystickGetDeviceInstanceID(index) == instance_) SDL_JoystickDetachVirtual(index);
        }
    }
    bool IsThere() const { return stick_ != nullptr; }
    void Axis(int axis, int value) { SDL_JoystickSetVirtualAxis(stick_, axis, static_cast<Sint16>(value)); }
    void Button(int button, bool down) { SDL_JoystickSetVirtualButton(stick_, button, down); }
    void Hat(unsigned ways) { SDL_JoystickSetVirtualHat(stick_, 0, static_cast<Uint8>(ways)); }

  private:
    int index_;
    SDL_Joystick* stick_ = nullptr;
    SDL_JoystickID instance_ = -1;
};

class JoysticksTest : public DesktopTest {
  protected:
    JoysticksTest() { Poll(); }
    ~JoysticksTest() override {
        first.reset();
        second.reset();
        Poll();
    }
    std::vector<InputEvent> Poll() {
        std::vector<InputEvent> events;
        desktop::TheHost().joysticks.Poll(events);
        return events;
    }
    InputEvent PollOne() {
        const auto events = Poll();
        EXPECT_EQ(1u, events.size());
        return events.empty() ? InputEvent{Kind::closeWindow} : events.front();
    }
    static InputEvent Reading(std::uint32_t x, std::uint32_t y, std::uint32_t buttons = 0, int id = 0) {
        return {Kind::joystick, id, x, y, buttons};
    }
    void SetUp() override {
        if (SDL_NumJoysticks() > 0) GTEST_SKIP() << "a real joystick has the first slot";
        first = std::make_unique<VirtualStick>();
        ASSERT_TRUE(first->IsThere()) << SDL_GetError();
    }

    static constexpr std::uint32_t kRest = 32767;
    std::unique_ptr<VirtualStick> first, second;
};

TEST_F(JoysticksTest, ADeviceThatComesReportsOnceAndThenOnlyChanges) {
    EXPECT_EQ(Reading(kRest, kRest), PollOne());
    EXPECT_TRUE(Poll().empty());
    first->Axis(0, 3000);
    EXPECT_TRUE(Poll().empty()) << "it trembles in its neutral zone";
    first->Axis(0, -32768);
    EXPECT_EQ(Reading(0, kRest), PollOne());
    first->Axis(0, 0);
    first->Axis(1, 32767);
    EXPECT_EQ(Reading(kRest, 65535), PollOne());
}

TEST_F(JoysticksTest, ButtonsAreBitsInOrder) {
    Poll();
    for (int button = 0; button < 4; ++button) {
        first->Button(button, true);
        EXPECT_EQ(Reading(kRest, kRest, 1u << button), PollOne());
        first->Button(button, false);
        EXPECT_EQ(Reading(kRest, kRest, 0), PollOne());
    }
}

TEST_F(JoysticksTest, TheHatDeflectsFully) {
    Poll();
    first->Hat(SDL_HAT_LEFTUP);
    EXPECT_EQ(Reading(0, 0), PollOne());
    first->Hat(SDL_HAT_RIGHT);
    EXPECT_EQ(Reading(65535, kRest), PollOne());
    first->Hat(SDL_HAT_DOWN);
    EXPECT_EQ(Reading(kRest, 65535), PollOne());
    first->Hat(SDL_HAT_CENTERED);
    EXPECT_EQ(Reading(kRest, kRest), PollOne());
}

TEST_F(JoysticksTest, TwoDevicesHaveASlotEachAndComeAndGo) {
    Poll();
    second = std::make_unique<VirtualStick>();
    EXPECT_EQ(Reading(kRest, kRest, 0, 1), PollOne());
    first->Detach();
    EXPECT_EQ((InputEvent{Kind::joystickOff, 0}), PollOne());
    EXPECT_TRUE(Poll().empty());
    second->Button(0, true);
    EXPECT_EQ(Reading(kRest, kRest, 1, 1), PollOne());
    first = std::make_unique<VirtualStick>();
    EXPECT_EQ(Reading(kRest, kRest, 0, 0), PollOne()) << "a new device takes the free slot";
}

TEST_F(JoysticksTest, ItsReadingsReachTheGame) {
    ShowMainForm();  // as Main does: what is plugged in has reported when it returns
    InitJoystick();
    ASSERT_EQ(True, game.JoyUse);
    EXPECT_EQ(0, game.JoyId);
    EXPECT_EQ(0, GetJoyDirection());
    first->Axis(0, 32767);
    first->Axis(1, -32768);
    first->Button(1, true);
    for (const InputEvent& event : Poll()) ApplyInput(event);
    EXPECT_EQ(2, GetJoyDirection());
    EXPECT_TRUE(GetJoyButton(2));
    EXPECT_FALSE(GetJoyButton(1));
}

}  // namespace
