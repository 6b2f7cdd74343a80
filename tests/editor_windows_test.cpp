#include <cmath>

#include <cstring>
#include <sstream>

#include "editor_test.h"
#include "stage/stage_script.h"

namespace {

class EditorWindow : public EditorTest {
  protected:
    struct Window {
        MenuItem& item;
        const char* file;
        std::size_t bytes;
        bool opensFile;
        const char* load;
        const char* save;
        Texts record0;
        void (*wipe)();  // the table in memory
    };

    template <auto Table>
    static void Wipe() {
        auto& table = game.*Table;
        std::memset(&table, 0, sizeof table);
    }

    std::vector<Window> windows{
        {MainForm.Menu201,
         "STAGE1.DAT",
         6669,
         false,
         "Command1",
         "Command2",
         {"1", "2", "0", "4", "5"},
         Wipe<&GameState::StageData>},
        {MainForm.Menu202,
         "EnemyData.DAT",
         550,
         true,
         "Command2",
         "Command3",
         {"0", "2", "3", "4", "5", "7", "6"},
         Wipe<&GameState::EnemyData>},
        {MainForm.Menu203,
         "EneMove.DAT",
         128000,
         true,
         "Command4",
         "Command3",
         {"0", "0", "0", "4"},
         Wipe<&GameState::EneMove>},
    };
};

TEST_F(EditorWindow, OpensInTheMiddleOnTheFirstRecord) {
    const GameState before = game;
    for (const auto& w : windows) {
        if (w.opensFile) w.wipe();
        Open(w.item, [&](Form& form) {
            EXPECT_TRUE(form.Centred);
            EXPECT_EQ(w.record0, Shown(form, w.record0.size()));
            SetScrollValue(form, "HScroll1", 30);
            EXPECT_NE(w.record0, Shown(form, w.record0.size()));
        });
        Open(w.item, [&](Form& form) { EXPECT_EQ(w.record0, Shown(form, w.record0.size())); });
    }
    EXPECT_TRUE(before == game);  // read anew, and nothing typed
    game.StageData[0].No = 99;
    Open(MainForm.Menu201, [&](Form& form) { EXPECT_EQ("99", form["Text3"].Text); });  // reads no file
}

// The windows' designs as text, beside the recorded games.
TEST_F(EditorWindow, LiesAsItWasDesigned) {
    for (const auto& w : windows) {
        std::ostringstream design;
        Open(w.item, [&](Form& form) {
            design << form.Name << " '" << form.Caption << "' " << form.ClientWidth << ' ' << form.ClientHeight << '\n';
            for (const Control& c : form.Design()) {
                design << static_cast<int>(c.Kind) << ' ' << c.Name << ' ' << c.At.Left << ' ' << c.At.Top << ' '
                       << c.At.Width << ' ' << c.At.Height << " tab " << c.TabIndex << " '" << c.Caption << "' '"
                       << c.Text << "' " << c.Container << ' ' << c.RightAligned << ' ' << c.Min << ".." << c.Max << ' '
                       << c.Value << ' ' << c.SmallChange << ' ' << c.LargeChange << '\n';
            }
        });
        std::ifstream file(TARNVEIL_TESTS "/forms/" + std::string(w.item.Name) + ".txt");
        EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), design.str());
    }
}

TEST_F(EditorWindow, LoadingStaysAtTheRecordAndDropsWhatWasTyped) {
    const GameState before = game;
    for (const auto& w : windows) {
        Open(w.item, [&](Form& form) {
            SetScrollValue(form, "HScroll1", 20);
            const Texts shown = Shown(form, w.record0.size());
            TypeAll(form, {"77"});
            w.wipe();
            ClickButton(form, w.load);
            EXPECT_EQ(20, form["HScroll1"].Value);
            EXPECT_EQ(shown, Shown(form, shown.size()));
            TypeAll(form, {"78"});  // closing stores nothing
        });
        EXPECT_TRUE(before == game) << w.file;
    }
}

TEST_F(EditorWindow, SavingAStoredRecordAltersItsBytesOnly) {
    const struct {
        int pattern;  // of the movement editor
        int record;
        Texts typed;  // no byte as before
        std::size_t offset;
        std::size_t size;
    } cases[] = {{0, 512, {"-1.1", "-2.2", "-3", "-4", "50"}, 512 * 13, 13},
                 {0, 20, {"-1", "-2", "-3", "-4", "50", "60", "70"}, 20 * 11, 11},
                 {3, 1, {"-1.1", "-2.2", "200", "100"}, 530, 10}};
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const auto& w = windows[i];
        Bytes expected = ReadFile(w.file);
        expected.resize(w.bytes + 100, 0xAA);  // behind the table
        ASSERT_EQ("", WriteFolderFile(w.file, expected));
        Open(w.item, [&](Form& form) {
            if (i == 2) SetScrollValue(form, "VScroll1", cases[i].pattern);
            SetScrollValue(form, "HScroll1", cases[i].record);
            TypeAll(form, cases[i].typed);
            ClickButton(form, w.save);
            EXPECT_EQ(expected, ReadFile(w.file)) << "typed but not stored";
            TypeAll(form, cases[i].typed);
            if (i == 0) ClickButton(form, "Command3");
            if (i == 1) ClickButton(form, "Command1");
            if (i == 2) SetScrollValue(form, "HScroll1", 0);
            ClickButton(form, w.save);
        });
        const Bytes saved = ReadFile(w.file);
        ASSERT_EQ(expected.size(), saved.size());
        for (std::size_t at = 0; at < saved.size(); ++at) {
            const bool inRecord = at >= cases[i].offset && at < cases[i].offset + cases[i].size;
            ASSERT_EQ(inRecord, saved[at] != expected[at]) << w.file << ' ' << at;
        }
    }
}

TEST_F(EditorWindow, FileFailuresAreToldAndTheTableInMemoryIsShown) {
    for (const auto& w : windows) {
        std::filesystem::resize_file(folder / w.file, w.bytes - 1);
        const Bytes file = ReadFile(w.file);
        const std::string shortOf = std::to_string(w.bytes - 1) + " of " + std::to_string(w.bytes);
        const GameState before = game;
        Open(w.item, [&](Form& form) {
            if (w.opensFile) ExpectMessage({w.file, shortOf});
            EXPECT_EQ(w.record0, Shown(form, w.record0.size()));
            TypeAll(form, {"77"});
            ClickButton(form, w.load);
            ExpectMessage({w.file, shortOf});
            EXPECT_EQ(w.record0, Shown(form, w.record0.size()));
            SetProgramFolder((folder / "gone").string());
            ClickButton(form, w.load);
            ExpectMessage({w.file, "missing"});
            ClickButton(form, w.save);
            ExpectMessage({w.file, "written"});
        });
        SetProgramFolder(folder.string());
        EXPECT_TRUE(before == game);
        EXPECT_EQ(file, ReadFile(w.file));
    }
}

TEST_F(EditorWindow, StoredTextsAreRoundedAndStayAsTyped) {
    const Texts entry{"1.50", " -2 ", "-1.5", "1E2", "2.5"};
    Open(MainForm.Menu201, [&](Form& form) {
        TypeAll(form, entry);
        ClickButton(form, "Command3");
        EXPECT_EQ(entry, Shown(form, 5));
        EXPECT_EQ((StageDataType{1.5f, -2, -2, 100, 2}), game.StageData[0]);
        SetScrollValue(form, "HScroll1", 1);
        TypeAll(form, entry);
        SetScrollValue(form, "HScroll1", 2);  // drops them
        EXPECT_EQ((StageDataType{1, 2, 1, 4, 5}), game.StageData[1]);
    });
    const Texts kind{"1.5", "-2", "48", "32", "3.5", "255.4", "200"};  // no pattern 200; it can be stored
    Open(MainForm.Menu202, [&](Form& form) {
        EXPECT_EQ("Height", form["Label3"].Caption);  // stands beside the third field, which edits Width
        TypeAll(form, kind);
        ClickButton(form, "Command1");
        EXPECT_EQ(kind, Shown(form, 7));
        EXPECT_EQ((EnemyDataType{2, -2, 48, 32, 4, 200, 255}), game.EnemyData[0]);
        ClickButton(form, "Command3");
        EXPECT_EQ((Texts{"2", "-2", "48", "32", "4", "255", "200"}), Shown(form, 7));
    });
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(EditorWindow, ABadFieldRefusesTheWholeRecord) {
    const char* const kSingles = "from -3.402823E+38 to 3.402823E+38";
    const char* const kIntegers = "from -32768 to 32767";
    const char* const kBytes = "from 0 to 255";
    const struct {
        int window;
        const char* store;  // button or scroll bar
        const char* field;
        const char* text;
        const char* label;  // how the message calls the field
        const char* range;
    } cases[] = {
        {0, "Command3", "Text1", "abc", "X:", kSingles},
        {0, "Command3", "Text2", "1E39", "Y:", kSingles},
        {0, "Command3", "Text3", "32768", "No:", kIntegers},
        {0, "Command3", "Text4", "-32769", "Counter:", kIntegers},
        {0, "Command3", "Text5", "255.5", "Power:", kBytes},
        {1, "Command1", "Text1(0)", "", "X:", kIntegers},
        {1, "Command1", "Text1(1)", "1E5", "Y:", kIntegers},
        {1, "Command1", "Text1(2)", "x", "Height:", kIntegers},
        {1, "Command1", "Text1(3)", "32767.5", "Width:", kIntegers},
        {1, "Command1", "Text1(4)", "256", "BomType:", kBytes},
        {1, "Command1", "Text1(5)", "-1", "Score:", kBytes},
        {1, "Command1", "Text1(6)", "&H10", "MoveNo:", kBytes},
        {2, "HScroll1", "Text1", "inf", "X増加量:", kSingles},
        {2, "VScroll1", "Text2", "-1E39", "Y増加量:", kSingles},
        {2, "HScroll1", "Text3", "256", "ｱﾆﾒﾌﾚｰﾑ:", kBytes},
        {2, "VScroll1", "Text4", "", "ﾌﾗｸﾞ:", kBytes},
        {2, "Command5", "Text4", "-1", "ﾌﾗｸﾞ:", kBytes},
    };
    for (const auto& c : cases) {
        const auto& w = windows[static_cast<std::size_t>(c.window)];
        Open(w.item, [&](Form& form) {
            const GameState before = game;
            TypeAll(form, Texts(w.record0.size(), "9"));
            TypeText(form, c.field, c.text);
            const Texts typed = Shown(form, w.record0.size());
            if (form[c.store].Kind == ControlKind::button) ClickButton(form, c.store);
            if (form[c.store].Kind != ControlKind::button) SetScrollValue(form, c.store, 20);
            EXPECT_TRUE(before == game);
            EXPECT_EQ(typed, Shown(form, typed.size()));
            EXPECT_EQ(c.field, form.Focus);
        });
        ExpectMessage({c.label, std::string("\"") + c.text + '"', c.range});
    }
}

TEST_F(EditorWindow, PlayStartChoicePicksTheAppearanceFile) {
    const std::pair<MenuItem&, const char*> cases[] = {{MainForm.Menu401, "STAGE1.DAT"},
                                                       {MainForm.Menu402, "STAGE2.DAT"},
                                                       {MainForm.Menu403, "STAGE3.DAT"},
                                                       {MainForm.Menu404, "Attack.DAT"}};
    game.StageNo = 2;  // the stage played does not matter
    for (const auto& [choice, file] : cases) {
        std::filesystem::remove(folder / "STAGE1.DAT");
        ASSERT_TRUE(ClickMenu(choice));
        Open(MainForm.Menu201, [](Form& form) {
            ClickButton(form, "Command2");
            game.StageData[0].No = 99;
            ClickButton(form, "Command1");
            EXPECT_EQ("0", form["Text3"].Text);
        });
        EXPECT_EQ(kStageFileBytes, ReadFile(file).size()) << file;
        std::filesystem::remove(folder / file);
    }
}

class EditingDuringPlay : public GameTest {};

TEST_F(EditingDuringPlay, TheNextFramePlaysTheEditedTable) {
    StartEmptyGame();
    EnableAuthorMenus();
    host.onModal = [](Form& form) {
        TypeText(form, "Text3", "7");
        TypeText(form, "Text5", "9");
        ClickButton(form, "Command3");
    };
    ASSERT_TRUE(ClickMenu(MainForm.Menu201));
    StageScript();
    EXPECT_EQ(1, game.Enemy[0].State);
    EXPECT_EQ(7, game.Enemy[0].Kind);
    EXPECT_EQ(9, game.Enemy[0].HP);
}

}  // namespace
