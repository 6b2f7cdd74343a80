// The program's folder: the place of the data tables, the sounds, the music and the best scores. Game code names a file
// in it by a leading backslash and its exact letter case ("\\EnemyData.DAT").
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "host/files.h"

// Set once, before Main. Default: the current folder.
void SetProgramFolder(const std::string& path);
const std::string& ProgramFolder();

// The path of "\\NAME" or "NAME" in the program's folder.
std::string FolderPath(std::string_view name);

FileBytes ReadFolderFile(std::string_view name);
std::string WriteFolderFile(std::string_view name, std::span<const std::uint8_t> bytes);
