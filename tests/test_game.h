// Fixture of the headless tests: a fresh state, a fresh window and a fresh host for each test.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "host/headless/headless.h"
#include "platform/input_state.h"
#include "shell/main_form.h"
#include "shell/random.h"
#include "shell/state.h"

class GameTest : public testing::Test {
  protected:
    GameTest();
    ~GameTest() override;

    // A folder of its own for the program, removed after the test. `filled`: with a copy of the shipped data.
    std::filesystem::path UseFolder(bool filled);

    // The state after LoadStage on empty tables, without reading any file: bounds set, ship in place, window loaded.
    void StartEmptyGame();

    headless::Host& host = headless::TheHost();

  private:
    std::filesystem::path folder_;
};
