// tarnveil-tables: the data files of the game from Lua sources and back, and a check of what they say.
#include <sys/stat.h>

#include <cstdio>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "check_tables.h"
#include "dump_tables.h"
#include "host/files.h"
#include "lua_tables.h"
#include "tables.h"

namespace {

constexpr const char* kUsage =
    "tarnveil-tables build SOURCE_DIR OUT_DIR   Lua sources -> the six .DAT files\n"
    "tarnveil-tables dump IN_DIR OUT_DIR|-      the six .DAT files -> Lua sources, or all of them printed\n"
    "tarnveil-tables check DIR                  what is wrong in the six .DAT files\n";

constexpr int kDone = 0, kFailed = 1, kMisused = 2;

int Fail(const std::string& message) {
    fprintf(stderr, "tarnveil-tables: %s\n", message.c_str());
    return kFailed;
}

int Build(const std::string& from, const std::string& to) {
    const auto tables = std::make_unique<Tables>();
    std::string fault = BuildTables(from, *tables);
    if (fault.empty()) fault = WriteTables(to, *tables);
    return fault.empty() ? kDone : Fail(fault);
}

// Sources are written by hand and worth more than a dump: none is overwritten.
int WriteSources(const std::vector<LuaSource>& sources, const std::string& folder) {
    for (const LuaSource& source : sources) {
        const std::string path = folder + "/" + source.name;
        if (ReadWholeFile(path).error != FileError::missing) return Fail(path + ": is there already");
    }
    for (const LuaSource& source : sources) {
        const std::string path = folder + "/" + source.name;
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(source.text.data());
        const std::string reason = WriteFileKeepingTail(path, {bytes, source.text.size()});
        if (!reason.empty()) return Fail(path + ": " + reason);
    }
    return kDone;
}

int Dump(const std::string& from, const std::string& to) {
    const auto tables = std::make_unique<Tables>();
    const std::string fault = ReadTables(from, *tables);
    if (!fault.empty()) return Fail(fault);
    const std::vector<LuaSource> sources = DumpTables(*tables);
    if (to != "-") return WriteSources(sources, to);
    for (const LuaSource& source : sources) printf("-- %s\n%s\n", source.name.c_str(), source.text.c_str());
    return kDone;
}

int Check(const std::string& folder) {
    const auto tables = std::make_unique<Tables>();
    const std::string fault = ReadTables(folder, *tables);
    if (!fault.empty()) return Fail(fault);
    const std::vector<std::string> findings = CheckTables(*tables);
    for (const std::string& finding : findings) printf("%s\n", finding.c_str());
    return findings.empty() ? kDone : kFailed;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() == 3 && words[0] == "build") return Build(words[1], words[2]);
    if (words.size() == 3 && words[0] == "dump") return Dump(words[1], words[2]);
    if (words.size() == 2 && words[0] == "check") return Check(words[1]);
    fputs(kUsage, stderr);
    return kMisused;
}
