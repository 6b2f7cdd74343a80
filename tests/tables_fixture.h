// Fixture of the table tests: a folder of Lua sources that build a small clean game, to be spoilt by each test.
#pragma once

#include <gtest/gtest.h>

#include <cctype>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "author/tables.h"
#include "host/files.h"
#include "lua_tables.h"
#include "stage/data_files.h"
#include "temporary_folder.h"

// A case's name: its number, and its text as far as a test's name may hold it.
inline std::string CaseName(std::size_t number, std::string_view text) {
    std::string name = std::to_string(number);
    for (const char c : text) {
        if (std::isalnum(static_cast<unsigned char>(c)) != 0)
            name += c;
        else if (name.back() != '_')
            name += '_';
    }
    return name;
}

class TablesTest : public testing::Test {
  protected:
    using Bytes = std::vector<std::uint8_t>;

    TablesTest() {
        Write("moves.lua", "pattern 'down'\nstep{DY = 2}\nstep{DX = 0, DY = 100, Flag = 'repeat'}\nstep{Flag = 'end'}");
        Write("enemies.lua", "kind{name = 'dart', Width = 32, Height = 32, MoveNo = 'down'}");
        for (const Play& play : kPlays) {
            Write(std::string(play.name) + ".lua", "entry{No = 'dart', Power = 1}\nentry{No = 'next_stage'}");
        }
    }

    void Write(const std::string& name, const std::string& text) { std::ofstream(folder + "/" + name) << text; }

    std::string Build() { return BuildTables(folder, *tables); }

    static Bytes FileAt(const std::string& path) { return ReadWholeFile(path).bytes; }

    const TemporaryFolder temporary;
    const std::string folder = temporary.path.string();
    std::unique_ptr<Tables> tables = std::make_unique<Tables>();
};
