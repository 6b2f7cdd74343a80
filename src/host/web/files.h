// The files of the browser's programs: two folders in memory. The shipped one is part of the program; the player's is
// filled by the page before the game starts, and every change of it goes to the page, which keeps it.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

namespace web {

inline constexpr const char* kShippedFolder = "/shipped";
inline constexpr const char* kPlayerFolder = "/player";

// Puts a file into the player's folder that is kept already.
void PutPlayerFile(const std::string& name, std::span<const std::uint8_t> bytes);

// Called with each file of the player's folder that the game writes. Returns why it cannot be kept, or nothing.
using Keeper = std::function<std::string(const std::string& name, std::span<const std::uint8_t> bytes)>;
void SetKeeper(Keeper keeper);

}  // namespace web
