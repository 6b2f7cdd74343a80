#include "tables.h"

#include <unistd.h>

#include <cstdint>
#include <span>
#include <vector>

#include "host/files.h"
#include "stage/data_files.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

std::string Join(const std::string& folder, const char* name) {
    return folder + "/" + name;
}

// The file's bytes when it holds at least `size`; else `message` says what is wrong.
Bytes ReadTable(const std::string& folder, const char* name, std::size_t size, std::string& message) {
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

struct Output {
    std::string path;
    Bytes bytes;
    FileBytes old;  // what stands there now
};

std::vector<Output> Outputs(const std::string& folder, const Tables& tables) {
    std::vector<Output> outputs;
    const auto add = [&](const char* name, Bytes bytes) {
        outputs.push_back({Join(folder, name), std::move(bytes), ReadWholeFile(Join(folder, name))});
    };
    add(kEnemyTable.file, EncodeEnemyData(tables.EnemyData));
    add(kMoveTable.file, EncodeEneMove(tables.EneMove));
    for (std::size_t i = 0; i < kStageTables; ++i) {
        add(kStageTableNames[i].file, EncodeStageData(tables.Stages[i]));
    }
    return outputs;
}

void PutBack(std::span<const Output> written) {
    for (const Output& output : written) {
        if (output.old.error == FileError::missing) {
            unlink(output.path.c_str());
        } else {
            static_cast<void>(WriteFileKeepingTail(output.path, output.old.bytes));
        }
    }
}

}  // namespace

std::string ReadTables(const std::string& folder, Tables& tables) {
    std::string message;
    DecodeEnemyData(ReadTable(folder, kEnemyTable.file, kEnemyDataFileBytes, message), tables.EnemyData);
    if (!message.empty()) return message;
    DecodeEneMove(ReadTable(folder, kMoveTable.file, kEneMoveFileBytes, message), tables.EneMove);
    for (std::size_t i = 0; i < kStageTables && message.empty(); ++i) {
        DecodeStageData(ReadTable(folder, kStageTableNames[i].file, kStageFileBytes, message), tables.Stages[i]);
    }
    return message;
}

std::string WriteTables(const std::string& folder, const Tables& tables) {
    const std::vector<Output> outputs = Outputs(folder, tables);
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        const std::string reason = WriteFileKeepingTail(outputs[i].path, outputs[i].bytes);
        if (reason.empty()) continue;
        PutBack(std::span(outputs).first(i));
        return outputs[i].path + ": the file cannot be written: " + reason;
    }
    return {};
}
