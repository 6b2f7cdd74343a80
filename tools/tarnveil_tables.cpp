// tarnveil-tables: the data files of the game from Lua sources and back, and a check of what they say.
#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "author/check_tables.h"
#include "author/table_drawings.h"
#include "author/tables.h"
#include "command_line/command_line.h"
#include "dump_tables.h"
#include "host/file_sets.h"
#include "host/files.h"
#include "lua_tables.h"
#include "merge_tables.h"
#include "state/field_size.h"
#include "svg.h"

namespace {

using command_line::kDone;
using command_line::kFailed;

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
        const std::string reason = WriteWholeFile(path, {bytes, source.text.size()});
        if (!reason.empty()) return Fail(path + ": " + reason);
    }
    return kDone;
}

// The names that the sources in `folder` give; without a folder, numbered ones.
std::string ReadNames(const std::string& folder, TableNames& names) {
    names = NumberedNames();
    if (folder.empty()) return {};
    const auto built = std::make_unique<BuiltTables>();
    std::string fault = BuildTables(folder, *built);
    std::ranges::copy(built->patternNames, names.patterns.begin());
    std::ranges::copy(built->kindNames, names.kinds.begin());
    return fault;
}

int Dump(const std::string& from, const std::string& to, const std::string& sourcesWithNames) {
    const auto tables = std::make_unique<Tables>();
    TableNames names;
    std::string fault = ReadNames(sourcesWithNames, names);
    if (fault.empty()) fault = ReadTables(from, *tables);
    if (!fault.empty()) return Fail(fault);
    const std::vector<LuaSource> sources = DumpTables(*tables, names);
    if (to != "-") return WriteSources(sources, to);
    for (const LuaSource& source : sources) printf("-- %s\n%s\n", source.name.c_str(), source.text.c_str());
    return kDone;
}

// Says what it does and what it cannot do; the sources change all together or not at all.
int Merge(const std::string& from, const std::string& sources) {
    const auto tables = std::make_unique<Tables>();
    std::string fault = ReadTables(from, *tables);
    if (!fault.empty()) return Fail(fault);
    const MergeResult merged = MergeTables(*tables, sources);
    if (!merged.fault.empty()) return Fail(merged.fault);
    std::vector<NamedBytes> files;
    for (const auto& [name, text] : merged.sources) files.push_back({name, {text.begin(), text.end()}});
    fault = files.empty() ? "" : WriteFileSet(sources, files);
    if (!fault.empty()) return Fail(fault);
    for (const std::string& line : merged.done) printf("%s\n", line.c_str());
    for (const std::string& line : merged.left) fprintf(stderr, "tarnveil-tables: not merged: %s\n", line.c_str());
    return merged.left.empty() ? kDone : kFailed;
}

// What to draw; one of them is given.
struct Subject {
    int pattern = -1;
    int kind = -1;
    int stage = -1;  // as in Tables::Stages
};

// The numbers of what is drawn follow the kinds and patterns in `game`.
void PutIntoGame(const Tables& tables) {
    std::ranges::copy(tables.EnemyData, game.EnemyData);
    for (int p = 0; p < kMovePatterns; ++p) std::ranges::copy(tables.EneMove[p], game.EneMove[p]);
    game.ScreenW = kFieldWidth;
    game.ScreenH = kFieldHeight;
}

int PrintPicture(const std::string& folder, const Subject& subject) {
    constexpr Integer kSmall = 64;  // pixels; shown twice their size
    const auto tables = std::make_unique<Tables>();
    const std::string fault = ReadTables(folder, *tables);
    if (!fault.empty()) return Fail(fault);
    PutIntoGame(*tables);
    std::string svg;
    if (subject.pattern >= 0) svg = SvgOf(DrawPattern(*tables, subject.pattern), 1);
    if (subject.kind >= 0) {
        const float scale = tables->EnemyData[subject.kind].Width <= kSmall ? 2 : 1;
        svg = SvgOf(DrawKind(*tables, subject.kind), scale);
    }
    if (subject.stage >= 0) svg = SvgOf(DrawStage(*tables, subject.stage), 1);
    return std::fputs(svg.c_str(), stdout) < 0 || std::fflush(stdout) != 0 ? Fail("the output cannot be written")
                                                                           : kDone;
}

int Check(const std::string& folder) {
    const auto tables = std::make_unique<Tables>();
    const std::string fault = ReadTables(folder, *tables);
    if (!fault.empty()) return Fail(fault);
    const std::vector<std::string> findings = CheckTables(*tables);
    for (const std::string& finding : findings) printf("%s\n", finding.c_str());
    return findings.empty() ? kDone : kFailed;
}

// One line each: the name of the source, the frame, the name of the passage.
int PrintPassages(const std::string& folder) {
    const auto built = std::make_unique<BuiltTables>();
    std::string fault = BuildTables(folder, *built);
    if (!fault.empty()) return Fail(fault);
    for (const Passage& passage :
         std::span(built->passages.list).first(static_cast<std::size_t>(built->passages.count))) {
        const std::string source = StageTable(static_cast<std::size_t>(passage.stage)).source;
        printf("%s %d %s\n", source.substr(0, source.find('.')).c_str(), passage.frame, passage.name);
    }
    return kDone;
}

void AddFolders(CLI::App& command, std::string& from, std::string& to, const CLI::Validator& target) {
    command.add_option("FROM_DIR", from, "where they are read")
        ->type_name("")
        ->required()
        ->check(CLI::ExistingDirectory);
    command.add_option("TO_DIR", to, "where they are written")->type_name("")->required()->check(target);
}

void AddSubject(CLI::App& command, Subject& subject) {
    command_line::Choices<int> stages;
    for (int i = 0; i < kStageTables; ++i) stages.emplace_back(kPlays[static_cast<std::size_t>(i)].name, i);
    CLI::Option_group* one = command.add_option_group("one of");
    const auto number = [](int& target) {
        return [&target](std::uint64_t value) { target = static_cast<int>(value); };
    };
    command_line::AddNumberFor(*one, "--pattern", number(subject.pattern), 0, kMovePatterns - 1,
                               "the way of an enemy through pattern N, with its shots");
    command_line::AddNumberFor(*one, "--kind", number(subject.kind), 0, kEnemyKinds - 1,
                               "kind N: its frames, where it is hit, its explosion");
    command_line::AddChoice(*one, "--stage", subject.stage, stages, "the time line of a stage");
    one->require_option(1);
}

}  // namespace

int main(int argc, char** argv) {
    command_line::App app("tarnveil-tables", 1, "Makes and checks the tables of Tarnveil's stages.");
    std::string from, to, names;
    Subject subject;
    CLI::App* build = app.add_subcommand("build", "make the six .DAT files from Lua sources");
    AddFolders(*build, from, to, CLI::ExistingDirectory);
    CLI::App* dump = app.add_subcommand("dump", "write the six .DAT files as Lua sources; to - prints them");
    AddFolders(*dump, from, to, CLI::ExistingDirectory | CLI::IsMember({"-"}));
    command_line::AddFolder(*dump, "--names", names, "Lua sources whose names for kinds and patterns to use");
    CLI::App* merge = app.add_subcommand("merge", "put what was changed in the six .DAT files into their Lua sources");
    AddFolders(*merge, from, to, CLI::ExistingDirectory);
    CLI::App* picture =
        app.add_subcommand("picture", "draw a pattern, a kind or a stage of the six .DAT files; prints SVG");
    picture->add_option("DIR", from, "where they are")->type_name("")->required()->check(CLI::ExistingDirectory);
    AddSubject(*picture, subject);
    CLI::App* check = app.add_subcommand("check", "say what is wrong in the six .DAT files");
    check->add_option("DIR", from, "where they are")->type_name("")->required()->check(CLI::ExistingDirectory);
    CLI::App* passages = app.add_subcommand("passages", "print the named passages of stages in Lua sources");
    passages->add_option("DIR", from, "where the sources are")
        ->type_name("")
        ->required()
        ->check(CLI::ExistingDirectory);
    app.require_subcommand(1);
    if (const auto ended = app.Read(argc, argv)) return *ended;
    if (build->parsed()) return Build(from, to);
    if (merge->parsed()) return Merge(from, to);
    if (picture->parsed()) return PrintPicture(from, subject);
    if (passages->parsed()) return PrintPassages(from);
    return dump->parsed() ? Dump(from, to, names) : Check(from);
}
