#include <algorithm>
#include <cmath>

#include "editor_test.h"
#include "editors/enemy_move_edit.h"

namespace {

using enemy_move_edit::PatternBuffer;
using enemy_move_edit::StepBuffer;

class MoveEditor : public EditorTest {
  protected:
    MoveEditor() {
        std::fill_n(PatternBuffer, kMoveSteps, EneMoveType{});
        StepBuffer = {};
    }

    static std::string UnderEdit(const Form& form) { return form["Label2"].Caption + "/" + form["Label4"].Caption; }
};

TEST_F(MoveEditor, MovingEitherBarStoresTheStepThatIsLeft) {
    const struct {
        const char* bar;
        int to;
        const char* position;
        Texts shown;
    } cases[] = {{"HScroll1", 11, "3/11", {"3", "11", "11", "4"}},
                 {"HScroll1", 999, "3/255", {"3", "255", "255", "4"}},
                 {"VScroll1", 4, "4/10", {"4", "10", "10", "4"}}};
    for (const auto& c : cases) {
        OpenAt(3, 10, [&](Form& form) {
            GameState expected = game;
            expected.EneMove[3][10] = {-1.5f, 100, 2, 253};
            TypeAll(form, {"-1.50", "1E2", "2.5", "253.4"});
            ClickButton(form, "Command3");  // leaves the fields alone
            SetScrollValue(form, c.bar, c.to);
            EXPECT_TRUE(expected == game) << c.position;
            EXPECT_EQ(c.position, UnderEdit(form));
            EXPECT_EQ(c.shown, Shown(form, 4));
        });
    }
}

TEST_F(MoveEditor, ABadFieldTakesTheMoveBack) {
    for (const char* bar : {"HScroll1", "VScroll1"}) {
        OpenAt(3, 10, [&](Form& form) {
            TypeAll(form, {"1", "2", "256", "4"});
            SetScrollValue(form, bar, 20);
            ExpectMessage({"ｱﾆﾒﾌﾚｰﾑ:"});
            EXPECT_EQ("3/10", UnderEdit(form));
            EXPECT_EQ(3, form["VScroll1"].Value);
            EXPECT_EQ(10, form["HScroll1"].Value);
            TypeText(form, "Text3", "3");
            SetScrollValue(form, bar, 20);
            EXPECT_EQ((EneMoveType{1, 2, 3, 4}), game.EneMove[3][10]);
        });
    }
}

TEST_F(MoveEditor, PassingEveryShippedStepChangesNothing) {
    SetProgramFolder(std::string(TARNVEIL_ASSETS) + "/data");
    Open(MainForm.Menu203, [](Form& form) {
        const GameState expected = game;
        for (int step = 0; step < kMoveSteps; ++step) {
            SetScrollValue(form, "HScroll1", step);
            for (int i = 1; i < kMovePatterns; ++i) {
                SetScrollValue(form, "VScroll1", step % 2 == 0 ? i : kMovePatterns - 1 - i);
            }
        }
        EXPECT_TRUE(expected == game);
    });
}

TEST_F(MoveEditor, PassingAStepStoresItsShownText) {
    game.EneMove[0][1].DX = std::nextafter(1.0f, 2.0f);
    game.EneMove[0][2].DX = NAN;
    ASSERT_EQ("", WriteEneMove());
    OpenAt(0, 1, [&](Form& form) {
        EXPECT_EQ("1", form["Text1"].Text);
        EXPECT_NE(1.0f, game.EneMove[0][1].DX);
        SetScrollValue(form, "HScroll1", 2);
        EXPECT_EQ(1.0f, game.EneMove[0][1].DX);
        EXPECT_EQ("nan", form["Label11"].Caption);
        SetScrollValue(form, "HScroll1", 3);
        EXPECT_EQ("0/2", UnderEdit(form));  // no number can be stored for this text
    });
}

TEST_F(MoveEditor, RunningPositionSumsThroughFifteenDigits) {
    const struct {
        std::vector<Single> increments;
        int step;
        const char* sum;
    } cases[] = {{{2, 2, 2, 2, 2}, 4, "10"},
                 {{2, 2, 2, 2, 2}, 0, "2"},
                 {{0.1f}, 0, "0.100000001490116"},
                 {{900000, 0.1f, -900000}, 2, "0.100000001024455"},  // 0.100000001490116 in plain double precision
                 {{1e20f}, 1, "1.00000002004088E+20"}};
    for (const auto& c : cases) {
        for (auto& step : game.EneMove[7]) step = {0, 0, 0, 253};  // jumps are summed like moves
        for (std::size_t i = 0; i < c.increments.size(); ++i) {
            game.EneMove[7][i].DX = c.increments[i];
            game.EneMove[7][i].DY = -c.increments[i];
        }
        ASSERT_EQ("", WriteEneMove());
        OpenAt(7, c.step, [&](Form& form) {
            EXPECT_EQ(c.sum, form["Label11"].Caption);
            EXPECT_EQ(std::string("-") + c.sum, form["Label12"].Caption);
        });
    }
}

TEST_F(MoveEditor, PatternCopyTakesTheTableAndOutlivesTheWindow) {
    GameState expected = game;
    std::copy_n(game.EneMove[5], kMoveSteps, expected.EneMove[9]);
    OpenAt(5, 30, [](Form& form) {
        TypeText(form, "Text1", "99");  // not stored, so not copied
        ClickButton(form, "Command1");
        EXPECT_EQ("99", form["Text1"].Text);
    });
    OpenAt(9, 40, [&](Form& form) {
        TypeText(form, "Text1", "77");  // lost
        ClickButton(form, "Command2");
        EXPECT_TRUE(expected == game);
        EXPECT_EQ((Texts{"5", "40", "40", "4"}), Shown(form, 4));
        EXPECT_EQ("9/40", UnderEdit(form));
        EXPECT_EQ("205", form["Label11"].Caption);
    });
}

TEST_F(MoveEditor, PastingBeforeAnyCopyWritesZeros) {
    OpenAt(5, 10, [](Form& form) {
        GameState expected = game;
        expected.EneMove[5][10] = {};
        ClickButton(form, "Command6");
        EXPECT_TRUE(expected == game);
        std::fill_n(expected.EneMove[5], kMoveSteps, EneMoveType{});
        ClickButton(form, "Command2");
        EXPECT_TRUE(expected == game);
    });
}

TEST_F(MoveEditor, StepCopyTakesTheFieldsAndPasteStoresThem) {
    OpenAt(5, 10, [&](Form& form) {
        GameState expected = game;
        TypeAll(form, {"3", "-0.5", "2.5", "254"});
        ClickButton(form, "Command5");
        EXPECT_TRUE(expected == game);
        TypeAll(form, {"8", "8", "8", "256"});
        ClickButton(form, "Command5");  // refused: the buffer stays
        ClickButton(form, "Command6");
        expected.EneMove[5][10] = {3, -0.5f, 2, 254};
        EXPECT_TRUE(expected == game);
        EXPECT_EQ((Texts{"3", "-0.5", "2", "254"}), Shown(form, 4));
        EXPECT_EQ("55", form["Label11"].Caption);  // the old sum, until the next step is shown
        SetScrollValue(form, "HScroll1", 11);
        EXPECT_EQ("58", form["Label11"].Caption);
    });
    ExpectMessage({"ﾌﾗｸﾞ:"});
}

TEST_F(MoveEditor, PasteAndIncFillsConsecutiveStepsUpToTheLast) {
    const struct {
        int start;
        int clicks;
        int filled;
        int shown;
    } cases[] = {{10, 1, 1, 11}, {10, 4, 4, 14}, {255, 1, 1, 255}, {253, 5, 3, 255}};
    for (const auto& c : cases) {
        OpenAt(5, c.start, [&](Form& form) {
            StepBuffer = {1.25f, -2, 3, 254};
            GameState expected = game;
            std::fill_n(expected.EneMove[5] + c.start, c.filled, StepBuffer);
            for (int i = 0; i < c.clicks; ++i) ClickButton(form, "Command7");
            EXPECT_TRUE(expected == game) << c.start;
            EXPECT_EQ("5/" + std::to_string(c.shown), UnderEdit(form));
            EXPECT_EQ(c.shown, form["HScroll1"].Value);
        });
    }
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(MoveEditor, FillRunsTheFramesThroughTheWholePattern) {
    const struct {
        const char* hold;
        const char* top;
        std::vector<int> period;  // the frames, over and over
    } cases[] = {{"2", "1", {0, 0, 0, 1, 1, 1}},
                 {"0", "3", {0, 1, 2, 3}},
                 {"1.0", "2.9", {0, 0, 1, 1, 2, 2}},
                 {"0", "0", {0}},
                 {"0", "0.5", {0}},
                 {"0", "-7", {0}},
                 {"255", "300", {0}},
                 {"127", "1E9", std::vector<int>(128)}};
    for (const auto& c : cases) {
        OpenAt(5, 3, [&](Form& form) {
            GameState expected = game;
            const std::size_t frames = c.period.size();
            for (std::size_t s = 0; s < kMoveSteps; ++s) expected.EneMove[5][s].Anime = Byte(c.period[s % frames]);
            if (frames == 128) std::for_each_n(expected.EneMove[5] + 128, 128, [](EneMoveType& s) { s.Anime = 1; });
            TypeAll(form, {"77", "2", "3", "4", "100", "101", c.top, c.hold});  // step: lost; range: not looked at
            ClickButton(form, "Command9");
            EXPECT_TRUE(expected == game) << c.hold << ' ' << c.top;
            EXPECT_EQ("5", form["Text1"].Text);
            EXPECT_EQ(std::to_string(expected.EneMove[5][3].Anime), form["Text3"].Text);
        });
    }
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(MoveEditor, FillRefusesWhatItCannotRunToTheEnd) {
    const struct {
        const char* hold;
        const char* top;
        const char* focus;
        Texts message;
    } cases[] = {
        {"256", "3", "Text8", {"1ﾌﾚｰﾑ時間:", "whole number from 0 to 255"}},
        {"-1", "3", "Text8", {"1ﾌﾚｰﾑ時間:"}},
        {"2.5", "3", "Text8", {"1ﾌﾚｰﾑ時間:"}},
        {"x", "x", "Text8", {"1ﾌﾚｰﾑ時間:"}},
        {"2", "", "Text7", {"最高ﾌﾚｰﾑ:", "a number"}},
        {"2", "1E999", "Text7", {"最高ﾌﾚｰﾑ:"}},
        {"0", "255", "Text7", {"最高ﾌﾚｰﾑ:", "below 255"}},
    };
    for (const auto& c : cases) {
        OpenAt(5, 1, [&](Form& form) {
            const GameState before = game;
            TypeAll(form, {"77", "2", "3", "4", "100", "101", c.top, c.hold});
            ClickButton(form, "Command9");
            EXPECT_TRUE(before == game);
            EXPECT_EQ(c.focus, form.Focus);
            ClickButton(form, "Command8");  // does nothing at all
            EXPECT_TRUE(before == game);
            EXPECT_EQ("77", form["Text1"].Text);
        });
        ExpectMessage(c.message);
    }
}

}  // namespace
