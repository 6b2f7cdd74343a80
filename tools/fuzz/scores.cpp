// Best scores: any file can be read, and saving it again changes nothing but what is too short to be one.
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <vector>

#include "host/headless/headless.h"
#include "shell/best_scores.h"
#include "toolkit/folder.h"

namespace {

std::string MakeFolder() {
    // In memory where there is such a place: saving waits for the disk, which would take all the time.
    const std::filesystem::path memory = "/dev/shm";
    const auto place = std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
    const auto folder = place / ("tarnveil-fuzz-" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    static const std::string made = folder.string();
    std::atexit([] { std::filesystem::remove_all(made); });
    SetProgramFolder(made);
    game.DigestMode = 2;  // no score of this play is kept: the file's own are saved
    return made;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string path = MakeFolder() + "/Scores.DAT";
    headless::TheHost().log.clear();
    std::ofstream(path, std::ios::binary | std::ios::trunc)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    LoadBestScores();
    SaveBestScores();
    std::vector<std::uint8_t> wanted(data, data + size);
    if (size < kScoresFileSize) wanted.assign(kScoresFileSize, 0);
    if (ReadFolderFile("\\Scores.DAT").bytes != wanted) std::abort();
    return 0;
}
