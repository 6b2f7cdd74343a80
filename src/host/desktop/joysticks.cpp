#include "host/desktop/joysticks.h"

#include <SDL2/SDL.h>

#include <algorithm>
#include <string>

#include "host/desktop/joystick_axis.h"
#include "host/files.h"

namespace desktop {

namespace {

struct CloseJoystick {
    void operator()(SDL_Joystick* joystick) const { SDL_JoystickClose(joystick); }
};
struct CloseController {
    void operator()(SDL_GameController* controller) const { SDL_GameControllerClose(controller); }
};

// Which ways the pad is pushed, as SDL_HAT_ bits.
using HatBits = unsigned;

struct PadButton {
    SDL_GameControllerButton button;
    HatBits way;
};
constexpr PadButton kPadButtons[] = {{SDL_CONTROLLER_BUTTON_DPAD_UP, SDL_HAT_UP},
                                     {SDL_CONTROLLER_BUTTON_DPAD_RIGHT, SDL_HAT_RIGHT},
                                     {SDL_CONTROLLER_BUTTON_DPAD_DOWN, SDL_HAT_DOWN},
                                     {SDL_CONTROLLER_BUTTON_DPAD_LEFT, SDL_HAT_LEFT}};

// The pad deflects fully; where it is let go, the stick counts.
std::uint32_t PadOrStick(HatBits pad, HatBits low, HatBits high, std::uint32_t stick) {
    if ((pad & low) != 0) return kAxisMin;
    if ((pad & high) != 0) return kAxisMax;
    return stick;
}

bool IsPlayStation(SDL_GameControllerType type) {
    return type == SDL_CONTROLLER_TYPE_PS3 || type == SDL_CONTROLLER_TYPE_PS4 || type == SDL_CONTROLLER_TYPE_PS5;
}

// As it stands on the pad; the four buttons under the right thumb have signs of their own on some.
std::string NameOf(SDL_GameControllerButton button, SDL_GameControllerType type) {
    constexpr const char* kSigns[] = {"Cross", "Circle", "Square", "Triangle"};
    constexpr const char* kLetters[] = {"A", "B", "X", "Y"};
    if (button <= SDL_CONTROLLER_BUTTON_Y) return (IsPlayStation(type) ? kSigns : kLetters)[button];
    return SDL_GameControllerGetStringForButton(button);
}

}  // namespace

class JoystickDevice {
  public:
    explicit JoystickDevice(int index)
        : joystick_(SDL_JoystickOpen(index)),
          controller_(SDL_IsGameController(index) ? SDL_GameControllerOpen(index) : nullptr) {}

    bool IsOpen() const { return joystick_ != nullptr; }
    bool IsAttached() const { return SDL_JoystickGetAttached(joystick_.get()) == SDL_TRUE; }
    int Instance() const { return SDL_JoystickInstanceID(joystick_.get()); }

    InputEvent Read(int id) const {
        const HatBits pad = Pad();
        InputEvent reading{InputEvent::Kind::joystick, id};
        reading.x = PadOrStick(pad, SDL_HAT_LEFT, SDL_HAT_RIGHT, Axis(0));
        reading.y = PadOrStick(pad, SDL_HAT_UP, SDL_HAT_DOWN, Axis(1));
        reading.buttons = Buttons();
        return reading;
    }

    std::uint32_t Buttons() const {
        constexpr int kWordBits = 32;
        std::uint32_t word = 0;
        const int count = std::min(SDL_JoystickNumButtons(joystick_.get()), kWordBits);
        for (int button = 0; button < count; ++button) {
            if (SDL_JoystickGetButton(joystick_.get(), button)) word |= 1u << button;
        }
        return word;
    }

    // What is written on button `number`, counted from 1.
    std::string ButtonName(int number) const {
        for (int each = 0; controller_ && each < SDL_CONTROLLER_BUTTON_MAX; ++each) {
            const auto button = static_cast<SDL_GameControllerButton>(each);
            const auto bind = SDL_GameControllerGetBindForButton(controller_.get(), button);
            if (bind.bindType != SDL_CONTROLLER_BINDTYPE_BUTTON || bind.value.button != number - 1) continue;
            return NameOf(button, SDL_GameControllerGetType(controller_.get()));
        }
        return "button " + std::to_string(number);
    }

  private:
    // A device without that axis reads as at rest.
    std::uint32_t Axis(int axis) const { return CalibratedAxis(SDL_JoystickGetAxis(joystick_.get(), axis)); }

    HatBits Pad() const {
        HatBits pad = SDL_JoystickNumHats(joystick_.get()) > 0 ? SDL_JoystickGetHat(joystick_.get(), 0) : 0u;
        for (const PadButton& each : kPadButtons) {
            if (controller_ && SDL_GameControllerGetButton(controller_.get(), each.button)) pad |= each.way;
        }
        return pad;
    }

    std::unique_ptr<SDL_Joystick, CloseJoystick> joystick_;
    std::unique_ptr<SDL_GameController, CloseController> controller_;  // where the pad is made of buttons
};

Joysticks::Joysticks() {
    SDL_SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");  // the window is not SDL's
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");                // Ctrl-C in the terminal must end the program
    working_ = SDL_InitSubSystem(SDL_INIT_JOYSTICK | SDL_INIT_GAMECONTROLLER) == 0;
    if (!working_) LogLine(std::string("joysticks: ") + SDL_GetError());
}

Joysticks::~Joysticks() {
    for (Slot& slot : slots_) slot.device.reset();
    if (working_) SDL_QuitSubSystem(SDL_INIT_JOYSTICK | SDL_INIT_GAMECONTROLLER);
}

bool Joysticks::IsOpen(int instance) const {
    return std::any_of(slots_.begin(), slots_.end(),
                       [instance](const Slot& slot) { return slot.device && slot.device->Instance() == instance; });
}

Joysticks::Slot* Joysticks::FreeSlot() {
    const auto slot = std::find_if(slots_.begin(), slots_.end(), [](const Slot& each) { return !each.device; });
    return slot == slots_.end() ? nullptr : &*slot;
}

void Joysticks::OpenNewDevices() {
    for (int index = 0; index < SDL_NumJoysticks(); ++index) {
        Slot* slot = FreeSlot();
        if (!slot) return;
        if (IsOpen(SDL_JoystickGetDeviceInstanceID(index))) continue;
        auto device = std::make_unique<JoystickDevice>(index);
        if (device->IsOpen()) slot->device = std::move(device);
    }
}

void Joysticks::Report(int id, Slot& slot, std::vector<InputEvent>& events) {
    if (!slot.device) return;
    if (!slot.device->IsAttached()) {
        events.push_back({InputEvent::Kind::joystickOff, id});
        slot = {};
        return;
    }
    const InputEvent reading = slot.device->Read(id);
    if (slot.reported == reading) return;
    slot.reported = reading;
    events.push_back(reading);
}

std::uint32_t Joysticks::PressedButtons() const {
    if (working_) SDL_JoystickUpdate();
    std::uint32_t pressed = 0;
    for (const Slot& slot : slots_) {
        if (slot.device) pressed |= slot.device->Buttons();
    }
    return pressed;
}

std::string Joysticks::ButtonHelp() const {
    constexpr int kChange = 1, kFire = 2;  // the game's button numbers
    const auto slot = std::ranges::find_if(slots_, [](const Slot& each) { return each.device != nullptr; });
    if (slot == slots_.end()) return "";
    return "Pad: " + slot->device->ButtonName(kFire) + " fires, " + slot->device->ButtonName(kChange) +
           " changes the shot";
}

void Joysticks::Poll(std::vector<InputEvent>& events) {
    if (!working_) return;
    SDL_JoystickUpdate();
    OpenNewDevices();
    SDL_JoystickUpdate();  // a device that was just opened reads zeros until now
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    for (int id = 0; id < kSlots; ++id) Report(id, slots_[static_cast<std::size_t>(id)], events);
}

}  // namespace desktop
