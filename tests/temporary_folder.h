// A folder of its own for one test, removed with everything in it; with a copy of `content` unless that is empty.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

struct TemporaryFolder {
    explicit TemporaryFolder(const std::filesystem::path& content = {}) {
        std::string pattern = (std::filesystem::temp_directory_path() / "tarnveil-test-XXXXXX").string();
        path = mkdtemp(pattern.data());
        if (!content.empty()) std::filesystem::copy(content, path, std::filesystem::copy_options::recursive);
    }
    ~TemporaryFolder() {
        std::error_code ignored;  // a file that a test has locked away must not end all others
        std::filesystem::remove_all(path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path path;
};
