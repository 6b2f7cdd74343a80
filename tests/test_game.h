// Fixture of the headless tests: a fresh state, a fresh window and a fresh host for each test.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <list>
#include <string>

#include "host/headless/headless.h"
#include "state/main_form.h"
#include "state/random.h"
#include "state/state.h"
#include "temporary_folder.h"
#include "toolkit/input_state.h"

class GameTest : public testing::Test {
  protected:
    GameTest();
    ~GameTest() override;

    // A new folder for the program, removed after the test. `filled`: with a copy of the shipped data.
    std::filesystem::path UseFolder(bool filled);

    // The state after LoadStage on empty tables, without reading any file: bounds set, ship in place, window loaded.
    void StartEmptyGame();

    headless::Host& host = headless::TheHost();

  private:
    std::list<TemporaryFolder> folders_;
};
