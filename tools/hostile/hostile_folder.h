// Where hostile games put their tables: hostile_folder.cpp on the disk, not waiting for it as the game's own writing
// does; memory_folder.cpp where the host keeps files in memory.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace hostile {

// A new folder under the system's temporary folder.
std::string MakeFolder();
void RemoveFolder(const std::string& folder);

void PutFile(const std::string& path, std::span<const std::uint8_t> bytes);
void DropFile(const std::string& path);

}  // namespace hostile
