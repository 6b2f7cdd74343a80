// Work in a process of its own, which is ended when it takes too long. Limits inside of Lua count its instructions
// only; a single call into its library may run for hours.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <span>
#include <string>

inline constexpr unsigned kProcessorSeconds = 10;  // less where the shell's own limit (ulimit -t) is

// Where the work is, as text: what is told of a process that does not come back.
using WorkPlace = std::array<char, 100>;

// Runs `work`, which keeps the place up to date and gives an empty text or its fault; only the first 4095 bytes of it
// come back. `result` comes back as the work has left it. Gives the fault or, when the process was ended, place and
// reason.
std::string RunLimited(const std::function<std::string(WorkPlace& place)>& work, std::span<std::byte> result);
