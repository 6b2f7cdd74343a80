#include "stage/data_files.h"

#include "host/window.h"
#include "stage/plays.h"
#include "toolkit/byte_order.h"
#include "toolkit/folder.h"

namespace {

// The file's bytes when it holds at least `size`; else `message` says what is wrong.
std::vector<std::uint8_t> ReadTableFile(std::string_view name, std::size_t size, std::string& message) {
    FileBytes file = ReadFolderFile(name);
    const std::string bare = BareName(name);
    if (file.error == FileError::missing) {
        message = bare + ": the file is missing from " + ProgramFolder();
    } else if (file.error != FileError::none) {
        message = bare + ": the file cannot be read: " + file.reason;
    } else if (file.bytes.size() < size) {
        message = bare + ": the file is too short: " + std::to_string(file.bytes.size()) + " of " +
                  std::to_string(size) + " bytes";
    }
    return std::move(file.bytes);
}

std::string WriteTableFile(std::string_view name, std::span<const std::uint8_t> bytes) {
    const std::string reason = WriteFolderFile(name, bytes);
    return reason.empty() ? "" : BareName(name) + ": the file cannot be written: " + reason;
}

}  // namespace

std::string_view StageFileOf(Byte digestMode) {
    const Play* play = FindPlay(digestMode);
    return play ? play->file : std::string_view();
}

std::vector<std::string_view> TableFiles() {
    std::vector<std::string_view> files;
    for (const Play& play : kPlays) files.push_back(play.file);
    files.insert(files.end(), {kEnemyDataFile, kEneMoveFile});
    return files;
}

std::string BareName(std::string_view name) {
    return std::string(name.substr(name.starts_with('\\') ? 1 : 0));
}

std::string ReadStageData(std::string_view name) {
    std::string message;
    const auto bytes = ReadTableFile(name, kStageFileBytes, message);
    if (message.empty()) DecodeStageData(bytes, game.StageData);
    return message;
}

std::string ReadEnemyData() {
    std::string message;
    const auto bytes = ReadTableFile(kEnemyDataFile, kEnemyDataFileBytes, message);
    if (message.empty()) DecodeEnemyData(bytes, game.EnemyData);
    return message;
}

std::string ReadEneMove() {
    std::string message;
    const auto bytes = ReadTableFile(kEneMoveFile, kEneMoveFileBytes, message);
    if (message.empty()) DecodeEneMove(bytes, game.EneMove);
    return message;
}

std::string WriteStageData(std::string_view name) {
    return WriteTableFile(name, EncodeStageData(game.StageData));
}
std::string WriteEnemyData() {
    return WriteTableFile(kEnemyDataFile, EncodeEnemyData(game.EnemyData));
}
std::string WriteEneMove() {
    return WriteTableFile(kEneMoveFile, EncodeEneMove(game.EneMove));
}

void EndOnError(const std::string& message) {
    if (message.empty()) return;
    LogLine(message);
    MsgBox(message, "Tarnveil");
    throw EndProgram{1, message};
}

std::vector<std::uint8_t> EncodeStageData(std::span<const StageDataType, kStageEntries> table) {
    ByteWriter out;
    for (const StageDataType& e : table) {
        out.Put(e.X);
        out.Put(e.Y);
        out.Put(e.No);
        out.Put(e.Counter);
        out.Put(e.Power);
    }
    return out.bytes;
}

std::vector<std::uint8_t> EncodeEnemyData(std::span<const EnemyDataType, kEnemyKinds> table) {
    ByteWriter out;
    for (const EnemyDataType& k : table) {
        for (const Integer field : {k.SX, k.SY, k.Width, k.Height}) out.Put(field);
        for (const Byte field : {k.BomType, k.MoveNo, k.Score}) out.Put(field);
    }
    return out.bytes;
}

std::vector<std::uint8_t> EncodeEneMove(const EneMoveType (&table)[kMovePatterns][kMoveSteps]) {
    ByteWriter out;
    for (int step = 0; step < kMoveSteps; ++step) {
        for (const auto& pattern : table) {
            out.Put(pattern[step].DX);
            out.Put(pattern[step].DY);
            out.Put(pattern[step].Anime);
            out.Put(pattern[step].Flag);
        }
    }
    return out.bytes;
}

void DecodeStageData(std::span<const std::uint8_t> bytes, std::span<StageDataType, kStageEntries> table) {
    ByteReader in(bytes);
    for (StageDataType& e : table) {
        e.X = in.Get<Single>();
        e.Y = in.Get<Single>();
        e.No = in.Get<Integer>();
        e.Counter = in.Get<Integer>();
        e.Power = in.Get<Byte>();
    }
}

void DecodeEnemyData(std::span<const std::uint8_t> bytes, std::span<EnemyDataType, kEnemyKinds> table) {
    ByteReader in(bytes);
    for (EnemyDataType& k : table) {
        for (Integer* field : {&k.SX, &k.SY, &k.Width, &k.Height}) *field = in.Get<Integer>();
        for (Byte* field : {&k.BomType, &k.MoveNo, &k.Score}) *field = in.Get<Byte>();
    }
}

void DecodeEneMove(std::span<const std::uint8_t> bytes, EneMoveType (&table)[kMovePatterns][kMoveSteps]) {
    ByteReader in(bytes);
    for (int step = 0; step < kMoveSteps; ++step) {
        for (auto& pattern : table) {
            pattern[step].DX = in.Get<Single>();
            pattern[step].DY = in.Get<Single>();
            pattern[step].Anime = in.Get<Byte>();
            pattern[step].Flag = in.Get<Byte>();
        }
    }
}
