// What tarnveil-tables says about a faulty source.
#include "tables_fixture.h"

namespace {

struct Fault {
    const char* file;
    const char* source;
    const char* message;  // its beginning
};

// What the shell's command prints on its error stream.
std::string Said(const std::string& command) {
    FILE* stream = popen((command + " 2>&1 >/dev/null").c_str(), "r");
    std::string text(1000, 0);
    text.resize(fread(text.data(), 1, text.size(), stream));
    pclose(stream);
    return text;
}

void PrintTo(const Fault& fault, std::ostream* out) {
    *out << fault.source;
}

class TableFaults : public TablesTest, public testing::WithParamInterface<Fault> {};

TEST_P(TableFaults, AreToldWithFileLineAndField) {
    Write(GetParam().file, GetParam().source);
    EXPECT_EQ(GetParam().message, Build().substr(0, std::string_view(GetParam().message).size()));
}

std::string NameOf(const testing::TestParamInfo<Fault>& info) {
    return CaseName(info.index, info.param.source);
}

INSTANTIATE_TEST_SUITE_P(
    Values, TableFaults,
    testing::Values(
        Fault{"stage1.lua", "\n\nentry{Power = 256}", "stage1.lua:3: entry 0, Power: 256 is not within 0..255"},
        Fault{"stage1.lua", "entry{}\nentry{Power = -1}", "stage1.lua:2: entry 1, Power: -1 is not within 0..255"},
        Fault{"stage1.lua", "entry{Counter = 32768}", "stage1.lua:1: entry 0, Counter: 32768 is not within -32768..32"},
        Fault{"stage1.lua", "entry{Counter = 0/0}", "stage1.lua:1: entry 0, Counter: "},
        Fault{"stage1.lua", "entry{No = 1.5}", "stage1.lua:1: entry 0, No: 1.5 is not a whole number"},
        Fault{"stage1.lua", "entry{X = 'left'}", "stage1.lua:1: entry 0, X: 'left' is neither a number nor '#' and"},
        Fault{"stage1.lua", "entry{X = '#7FC'}", "stage1.lua:1: entry 0, X: '#7FC' is neither"},
        Fault{"stage1.lua", "entry{X = '#7FC0000G'}", "stage1.lua:1: entry 0, X: '#7FC0000G' is neither"},
        Fault{"stage1.lua", "entry{Y = 1e39}", "stage1.lua:1: entry 0, Y: 1e+39 is not within the range of a Single"},
        Fault{"stage1.lua", "entry{Y = {}}", "stage1.lua:1: entry 0, Y: table is not a number"},
        Fault{"stage1.lua", "entry{Counter = '5'}", "stage1.lua:1: entry 0, Counter: string is not a number"},
        Fault{"stage1.lua", "entry{Powr = 5}", "stage1.lua:1: entry 0: there is no field Powr"},
        Fault{"stage1.lua", "entry{5}", "stage1.lua:1: entry 0: there is no field number 1"},
        Fault{"stage1.lua", "entry(5)", "stage1.lua:1: entry 0: one table is wanted"},
        Fault{"stage1.lua", "entry{No = 'drat'}", "stage1.lua:1: entry 0, No: there is no 'drat'"},
        Fault{"stage1.lua", "for i = 0, 513 do\nentry{}\nend", "stage1.lua:2: entry 513: a table has room for 513"},
        Fault{"moves.lua", "step{}", "moves.lua:1: step: no pattern has begun"},
        Fault{"moves.lua", "pattern 'a' for i = 0, 256 do step{} end",
              "moves.lua:1: pattern 0, step 256: a pattern ha"},
        Fault{"moves.lua", "pattern 'a'\nstep{Anime = 300}",
              "moves.lua:2: pattern 0, step 0, Anime: 300 is not within"},
        Fault{"moves.lua", "for i = 0, 50 do pattern() end", "moves.lua:1: pattern: number 50 is not within 0..49"},
        Fault{"moves.lua", "pattern 'a'\npattern 'a'", "moves.lua:2: pattern: the name a is taken"},
        Fault{"moves.lua", "pattern(nil, 3)\npattern(nil, 3)", "moves.lua:2: pattern: number 3 is given twice"},
        Fault{"moves.lua", "pattern(5)", "moves.lua:1: pattern: the name must be text"},
        Fault{"enemies.lua", "kind{MoveNo = 'up'}", "enemies.lua:1: kind 0, MoveNo: there is no 'up'"},
        Fault{"enemies.lua", "kind{number = 50}", "enemies.lua:1: kind 0: number 50 is not within 0..49"},
        Fault{"enemies.lua", "kind{name = 'clear'}", "enemies.lua:1: kind 0: the name clear is taken"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Scripts, TableFaults,
    testing::Values(
        Fault{"stage2.lua", "entry{\nPower 5}", "stage2.lua:2: "},
        Fault{"stage2.lua", "\nspwan()", "stage2.lua:2: attempt to call a nil value (global 'spwan')"},
        Fault{"stage2.lua", "error 'done'", "stage2.lua:1: done"},
        Fault{"stage2.lua", "\nwhile true do end", "stage2.lua:2: more than 50 million instructions"},
        Fault{"stage2.lua", "t = 'x'\nwhile true do t = t .. t end", "stage2.lua:2: more than 64 MiB of memory"},
        Fault{"stage2.lua", "\n\nt = ('x'):rep(1e9)", "stage2.lua:3: more than 64 MiB of memory"},
        Fault{"moves.lua", "for i = 1, 49 do pattern(i .. ('x'):rep(1e7)) end", "moves.lua:1: pattern: the name is l"},
        Fault{"stage2.lua", "step{}", "stage2.lua:1: attempt to call a nil value (global 'step')"},
        Fault{"stage2.lua", "include 'none.lua'", "stage2.lua:1: none.lua: No such file"},
        Fault{"stage2.lua", "include '/etc/hostname'", "stage2.lua:1: include: '/etc/hostname' is neither a file of"},
        Fault{"stage2.lua", "include '../stage1.lua'", "stage2.lua:1: include: '../stage1.lua' is neither"},
        Fault{"stage2.lua", "\x1bLua", "stage2.lua: compiled code, not text"},
        Fault{"stage2.lua", "pairs{[{}] = 1}", "stage2.lua:1: pairs goes through keys that are numbers or strings"},
        Fault{"stage2.lua", "math.randomseed()", "stage2.lua:1: math.randomseed wants a whole number"}),
    NameOf);

TEST_F(TablesTest, AFaultInAnIncludedFileNamesTheLineOfTheStageToo) {
    Write("words.lua", "\nfunction wave() entry{Power = 999} end");
    Write("stage3.lua", "include 'words.lua'\n\nwave()\n");
    EXPECT_EQ("words.lua:2: entry 0, Power: 999 is not within 0..255 (from stage3.lua:3)", Build());
}

TEST_F(TablesTest, AMissingSourceIsNamed) {
    std::filesystem::remove(folder + "/stage3.lua");
    EXPECT_EQ("stage3.lua: No such file or directory", Build());
}

// Calls into Lua's own library run no instructions. The shell's limit stands in for the tool's own of 10 seconds.
TEST_F(TablesTest, ACallThatDoesNotComeBackIsEndedWithItsPlace) {
    for (const char* call : {"(('a'):rep(1e6)):find(('a*'):rep(30) .. 'b')", "table.move({}, 1, 1e17, 2)",
                             "table.sort({1, 2, 3}, function() table.move({}, 1, 1e17, 2) end)"}) {
        Write("waves.lua", std::string("return function()\n local x = ") + call + "\nend");
        Write("stage2.lua", "(include 'waves.lua')()");
        const std::string command = "ulimit -S -t 1; " TARNVEIL_TABLES_TOOL " build " + folder + " " + folder;
        EXPECT_EQ("tarnveil-tables: waves.lua:2: more than 1 s of processor time\n", Said(command)) << call;
    }
}

// Files, code from text, programs, the clock, and whatever could catch the end of the instructions.
TEST_F(TablesTest, ScriptsReachNothingOutside) {
    for (const char* name : {"io", "os", "package", "require", "debug", "coroutine", "dofile", "loadfile", "load",
                             "pcall", "xpcall", "collectgarbage", "setmetatable", "getmetatable", "next"}) {
        Write("stage1.lua", "if " + std::string(name) + " ~= nil then error('is there') end");
        EXPECT_EQ("", Build()) << name;
    }
}

}  // namespace
