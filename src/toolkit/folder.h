// The program's folder: the place of the data tables, the sounds, the music and the best scores. Game code names a file
// in it by a leading backslash and its exact letter case ("\\EnemyData.DAT").
//
// It is one folder, or the player's own one laid over the shipped data: then a file is read from the player's folder if
// it has one of that name, else from the shipped data, and all writing goes to the player's folder.
#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/files.h"

// Set once, before Main. Default: the current folder, alone.
void SetProgramFolder(const std::string& path);

// The player's folder, which need not be there before something is written, over the shipped data.
void SetProgramFolder(const std::string& path, const std::string& shippedData);

// Where files are written.
const std::string& ProgramFolder();

// Where "\\NAME" or "NAME" is read from; when there is no such file, where it would be written.
std::string FolderPath(std::string_view name);

// Lays files, by their bare names, over the folder for reading, in place of others laid there before; none: takes them
// away. For old games that are played again with the tables of their time.
void LayOverFolder(std::map<std::string, std::vector<std::uint8_t>> files);

FileBytes ReadFolderFile(std::string_view name);

// Overwrites the first bytes of the file and keeps a longer file's tail, also that of the shipped file that the new one
// hides. Empty when done, else the reason.
std::string WriteFolderFile(std::string_view name, std::span<const std::uint8_t> bytes);

// `bytes` in place of the first bytes of `old`.
std::vector<std::uint8_t> WithTail(std::span<const std::uint8_t> bytes, std::span<const std::uint8_t> old);
