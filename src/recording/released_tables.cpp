#include "recording/released_tables.h"

#include <charconv>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "recording/digest.h"
#include "toolkit/deflate.h"
#include "toolkit/folder.h"
#include "toolkit/resources.h"

namespace {

using Tables = std::map<std::string, std::vector<std::uint8_t>>;

// Up to the line's end, which is passed over.
std::string TakeLine(std::span<const std::uint8_t>& bytes) {
    std::string line;
    while (!bytes.empty()) {
        const char c = static_cast<char>(bytes.front());
        bytes = bytes.subspan(1);
        if (c == '\n') break;
        line += c;
    }
    return line;
}

// As scripts/keep-tables.py has packed them.
Tables Unpacked(std::string_view file) {
    constexpr std::size_t kMost = 1u << 20;
    const auto content = Inflate(BuiltInFile(file), kMost);
    std::span<const std::uint8_t> left;
    if (content) left = *content;
    Tables tables;
    while (!left.empty()) {
        const std::string name = TakeLine(left), length = TakeLine(left);
        std::size_t size = 0;
        std::from_chars(length.data(), length.data() + length.size(), size);
        if (size > left.size()) return {};
        tables[name].assign(left.begin(), left.begin() + static_cast<std::ptrdiff_t>(size));
        left = left.subspan(size);
    }
    return tables;
}

}  // namespace

bool UseTables(std::uint64_t digest) {
    UseOwnTables();
    if (DataDigest() == digest) return true;
    for (const std::string_view file : BuiltInNames("released/")) {
        LayOverFolder(Unpacked(file));
        if (DataDigest() == digest) return true;
    }
    UseOwnTables();
    return false;
}

void UseOwnTables() {
    LayOverFolder({});
}
