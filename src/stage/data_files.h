// The data files: exact images of the tables StageData, EnemyData and EneMove. Each is read and written whole. A file
// that is missing or shorter than its table is refused and the table in memory stays as it was; bytes behind the table
// are ignored on reading and kept on writing.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "state/state.h"

inline constexpr std::string_view kEnemyDataFile = "\\EnemyData.DAT";  // 50 kinds, 550 bytes
inline constexpr std::string_view kEneMoveFile = "\\EneMove.DAT";      // 50 patterns of 256 steps, 128000 bytes

// The appearance file (513 entries, 6669 bytes) of the play of that number; empty where there is no such play.
std::string_view StageFileOf(Byte digestMode);

// All tables: the appearance file of each play, then the two above.
std::vector<std::string_view> TableFiles();

// A file's name without the backslash that stands for the program's folder.
std::string BareName(std::string_view name);

// From the program's folder into `game`. Empty when done, else a message that names the file and the reason.
std::string ReadStageData(std::string_view name);
std::string ReadEnemyData();
std::string ReadEneMove();

// From `game` into the program's folder. Empty when done, else a message that names the file and the reason.
std::string WriteStageData(std::string_view name);
std::string WriteEnemyData();
std::string WriteEneMove();

// For the game itself, which cannot go on without its tables: shows a non-empty message and ends the program with
// status 1.
void EndOnError(const std::string& message);

// The byte images. Decoding wants at least the table's size. In "EneMove.DAT" the pattern varies fastest: step s of
// pattern p is record p + 50 * s.
std::vector<std::uint8_t> EncodeStageData(std::span<const StageDataType, kStageEntries> table);
std::vector<std::uint8_t> EncodeEnemyData(std::span<const EnemyDataType, kEnemyKinds> table);
std::vector<std::uint8_t> EncodeEneMove(const EneMoveType (&table)[kMovePatterns][kMoveSteps]);
void DecodeStageData(std::span<const std::uint8_t> bytes, std::span<StageDataType, kStageEntries> table);
void DecodeEnemyData(std::span<const std::uint8_t> bytes, std::span<EnemyDataType, kEnemyKinds> table);
void DecodeEneMove(std::span<const std::uint8_t> bytes, EneMoveType (&table)[kMovePatterns][kMoveSteps]);

inline constexpr std::size_t kStageFileBytes = kStageEntries * kStageDataFileSize;
inline constexpr std::size_t kEnemyDataFileBytes = kEnemyKinds * kEnemyDataFileSize;
inline constexpr std::size_t kEneMoveFileBytes = kMovePatterns * kMoveSteps * kEneMoveFileSize;
static_assert(kStageFileBytes == 6669 && kEnemyDataFileBytes == 550 && kEneMoveFileBytes == 128000);
