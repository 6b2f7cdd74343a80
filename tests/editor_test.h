// Fixture of the editor tests: tables of which each record is known by its number, on disk and in memory, and an author
// who opens a window from the menu.
#pragma once

#include <fstream>
#include <functional>
#include <iterator>
#include <vector>

#include "stage/data_files.h"
#include "test_game.h"
#include "toolkit/folder.h"
#include "toolkit/forms.h"

using Bytes = std::vector<std::uint8_t>;
using Texts = std::vector<std::string>;

class EditorTest : public GameTest {
  protected:
    EditorTest() {
        EnableAuthorMenus();
        for (Integer i = 0; i < kStageEntries; ++i) game.StageData[i] = {1, 2, i, 4, 5};
        for (Integer k = 0; k < kEnemyKinds; ++k) game.EnemyData[k] = {k, 2, 3, 4, 5, 6, 7};
        for (int s = 0; s < kMoveSteps; ++s) {
            for (int p = 0; p < kMovePatterns; ++p) game.EneMove[p][s] = {Single(p), Single(s), Byte(s), 4};
        }
        EXPECT_EQ("", WriteStageData("\\STAGE1.DAT") + WriteEnemyData() + WriteEneMove());
    }

    // Opens the item's window, lets the author work in it, and closes it.
    void Open(MenuItem& item, const std::function<void(Form&)>& author) {
        const std::size_t before = host.modals.size();
        host.onModal = author;
        ASSERT_TRUE(ClickMenu(item));
        ASSERT_EQ(before + 1, host.modals.size());
    }

    // Opens the movement editor at a step.
    void OpenAt(int pattern, int step, const std::function<void(Form&)>& author) {
        Open(MainForm.Menu203, [&](Form& form) {
            SetScrollValue(form, "VScroll1", pattern);
            SetScrollValue(form, "HScroll1", step);
            author(form);
        });
    }

    // Exactly one message has come since the last call, and it says all of this.
    void ExpectMessage(const Texts& parts) {
        ASSERT_EQ(1u, host.messages.size());
        for (const auto& part : parts) EXPECT_NE(std::string::npos, host.messages[0].find(part)) << host.messages[0];
        host.messages.clear();
    }

    Bytes ReadFile(const std::string& name) const {
        std::ifstream file(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    // The text fields in the order of their names.
    static Texts Shown(const Form& form, std::size_t count) {
        Texts texts;
        for (std::size_t i = 0; i < count; ++i) texts.push_back(form[FieldName(form, i)].Text);
        return texts;
    }

    static void TypeAll(Form& form, const Texts& texts) {
        for (std::size_t i = 0; i < texts.size(); ++i) TypeText(form, FieldName(form, i), texts[i]);
    }

    std::filesystem::path folder = UseFolder(false);

  private:
    static std::string FieldName(const Form& form, std::size_t i) {
        return form.Name == "EnemyDataEdit" ? "Text1(" + std::to_string(i) + ")" : "Text" + std::to_string(i + 1);
    }
};
