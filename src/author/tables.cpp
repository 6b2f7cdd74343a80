#include "author/tables.h"

#include <cstdint>
#include <vector>

#include "host/file_sets.h"
#include "host/files.h"
#include "stage/data_files.h"
#include "toolkit/folder.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

std::string Join(const std::string& folder, const std::string& name) {
    return folder + "/" + name;
}

// The file's bytes when it holds at least `size`; else `message` says what is wrong.
Bytes ReadTable(const std::string& folder, const std::string& name, std::size_t size, std::string& message) {
    FileBytes file = ReadWholeFile(Join(folder, name));
    if (!message.empty()) return {};
    if (file.error != FileError::none) {
        message = Join(folder, name) + ": " + file.reason;
    } else if (file.bytes.size() < size) {
        message = Join(folder, name) + ": the file is too short: " + std::to_string(file.bytes.size()) + " of " +
                  std::to_string(size) + " bytes";
    }
    return message.empty() ? std::move(file.bytes) : Bytes(size);
}

// The new content of the file: longer files keep what lies behind their table.
NamedBytes Image(const std::string& folder, const std::string& name, const Bytes& bytes) {
    return {name, WithTail(bytes, ReadWholeFile(Join(folder, name)).bytes)};
}

}  // namespace

std::string ReadTables(const std::string& folder, Tables& tables) {
    std::string message = CompleteFileSet(folder);
    if (!message.empty()) return message;
    DecodeEnemyData(ReadTable(folder, kEnemyTable.file, kEnemyDataFileBytes, message), tables.EnemyData);
    if (!message.empty()) return message;
    DecodeEneMove(ReadTable(folder, kMoveTable.file, kEneMoveFileBytes, message), tables.EneMove);
    for (std::size_t i = 0; i < kStageTables && message.empty(); ++i) {
        DecodeStageData(ReadTable(folder, StageTable(i).file, kStageFileBytes, message), tables.Stages[i]);
    }
    return message;
}

std::string WriteTables(const std::string& folder, const Tables& tables) {
    std::string message = CompleteFileSet(folder);
    if (!message.empty()) return message;
    std::vector<NamedBytes> files = {Image(folder, kEnemyTable.file, EncodeEnemyData(tables.EnemyData)),
                                     Image(folder, kMoveTable.file, EncodeEneMove(tables.EneMove))};
    for (std::size_t i = 0; i < kStageTables; ++i) {
        files.push_back(Image(folder, StageTable(i).file, EncodeStageData(tables.Stages[i])));
    }
    return WriteFileSet(folder, files);
}
