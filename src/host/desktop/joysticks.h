// The joysticks, as two slots that devices come to and go from.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/events.h"

namespace desktop {

class JoystickDevice;

class Joysticks {
  public:
    Joysticks();
    ~Joysticks();
    Joysticks(const Joysticks&) = delete;
    Joysticks& operator=(const Joysticks&) = delete;

    // Opens devices that have come into the free slots, and appends an event for every slot whose reading has changed
    // and for every device that is gone.
    void Poll(std::vector<InputEvent>& events);

    // For the pause: which buttons are down on any device, and what those of the first one do ("" without a device).
    // Reports nothing.
    std::uint32_t PressedButtons() const;
    std::string ButtonHelp() const;

  private:
    static constexpr int kSlots = 2;  // what the game looks for: joystick 0, else joystick 1
    struct Slot {
        std::unique_ptr<JoystickDevice> device;
        std::optional<InputEvent> reported;
    };
    bool IsOpen(int instance) const;
    Slot* FreeSlot();
    void OpenNewDevices();
    void Report(int id, Slot& slot, std::vector<InputEvent>& events);

    bool working_ = false;
    std::array<Slot, kSlots> slots_;
};

}  // namespace desktop
