// Fixture of the table tests: a folder of Lua sources that build a small clean game, to be spoilt by each test.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "host/files.h"
#include "lua_tables.h"
#include "stage/data_files.h"
#include "tables.h"

class TablesTest : public testing::Test {
  protected:
    using Bytes = std::vector<std::uint8_t>;

    TablesTest() {
        std::string pattern = (std::filesystem::temp_directory_path() / "tarnveil-tables-XXXXXX").string();
        folder = mkdtemp(pattern.data());
        Write("moves.lua", "pattern 'down'\nstep{DY = 2}\nstep{DX = 0, DY = 100, Flag = 'repeat'}\nstep{Flag = 'end'}");
        Write("enemies.lua", "kind{name = 'dart', Width = 32, Height = 32, MoveNo = 'down'}");
        for (const TableName& stage : kStageTableNames) {
            Write(stage.source, "entry{No = 'dart', Power = 1}\nentry{No = 'next_stage'}");
        }
    }
    ~TablesTest() override { std::filesystem::remove_all(folder); }

    void Write(const std::string& name, const std::string& text) { std::ofstream(folder + "/" + name) << text; }

    std::string Build() { return BuildTables(folder, *tables); }

    static Bytes FileAt(const std::string& path) { return ReadWholeFile(path).bytes; }

    std::string folder;
    std::unique_ptr<Tables> tables = std::make_unique<Tables>();
};
