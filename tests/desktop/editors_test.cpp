// The three editor windows through their real widgets: opened from the menu, typed into, clicked and closed.
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>
#include <map>

#include "desktop_test.h"
#include "editors/editor1.h"
#include "editors/enemy_data_edit.h"
#include "editors/enemy_move_edit.h"
#include "host/desktop/form_widgets.h"
#include "host/desktop/form_window.h"
#include "stage/data_files.h"
#include "state/state.h"
#include "toolkit/folder.h"
#include "toolkit/forms.h"

namespace {

class EditorOnScreenTest : public DesktopTest {
  protected:
    EditorOnScreenTest() : folder(std::filesystem::path(TARNVEIL_ASSETS) / "data") {
        SetProgramFolder(folder.path.string());
        EnableAuthorMenus();
        EXPECT_EQ("", ReadStageData("\\STAGE1.DAT") + ReadEnemyData() + ReadEneMove());
    }
    ~EditorOnScreenTest() override { SetProgramFolder("."); }

    static desktop::FormWindow& Window() { return *desktop::TheHost().form; }
    template <class Widget>
    static Widget& The(const char* name) {
        return *Window().findChild<Widget*>(name);
    }
    static void Type(const char* field, const char* text) {
        The<QLineEdit>(field).selectAll();
        QTest::keyClicks(&The<QLineEdit>(field), text);
    }
    static void Click(const char* button) { QTest::mouseClick(&The<QPushButton>(button), Qt::LeftButton); }

    // Carries the steps out one after the other, each after the program has dealt with the one before it, then presses
    // Esc.
    static void Carry(std::vector<std::function<void()>> steps, std::size_t next) {
        constexpr int kPause = 60;  // ms
        Later(kPause, [steps = std::move(steps), next] {
            if (next == steps.size()) {
                QTest::keyClick(&Window(), Qt::Key_Escape);
                return;
            }
            steps[next]();
            Carry(steps, next + 1);
        });
    }

    // Clicks the menu item and plays the user of its window.
    static void Use(MenuItem& item, std::vector<std::function<void()>> steps) {
        Carry(std::move(steps), 0);
        EXPECT_TRUE(ClickMenu(item));
        EXPECT_EQ(nullptr, desktop::TheHost().form);
    }

    static void ExpectEverythingInPlace(const Form& form) {
        EXPECT_EQ(QSize(form.ClientWidth, form.ClientHeight), Window().size());
        for (const Control& control : form.Controls) {
            EXPECT_EQ(QPoint(control.At.Left, control.At.Top), The<QWidget>(control.Name.c_str()).pos())
                << control.Name;
            if (control.Kind != ControlKind::button) continue;
            const QPushButton& button = The<QPushButton>(control.Name.c_str());
            const QString shown = button.text().replace("&&", "&");
            EXPECT_LE(button.fontMetrics().horizontalAdvance(shown), control.At.Width) << control.Name;
        }
    }

    TemporaryFolder folder;
};

TEST_F(EditorOnScreenTest, TheAppearanceEditorStoresAnEntryAndSavesTheTable) {
    Use(MainForm.Menu201,
        {[] { ExpectEverythingInPlace(Editor1); },
         [] { The<QScrollBar>("HScroll1").triggerAction(QAbstractSlider::SliderSingleStepAdd); },
         [] { Type("Text1", "-12.5"), Type("Text3", "7"); }, [] { Click("Command3"); }, [] { Click("Command2"); }});
    EXPECT_EQ(-12.5F, game.StageData[1].X);
    EXPECT_EQ(7, game.StageData[1].No);
    game.StageData[1] = {};
    ASSERT_EQ("", ReadStageData("\\STAGE1.DAT"));
    EXPECT_EQ(-12.5F, game.StageData[1].X) << "saved to the file";
}

TEST_F(EditorOnScreenTest, TheEnemyEditorHasItsSwappedCaptionsAndRefusesABadField) {
    const EnemyDataType before = game.EnemyData[0];
    QString message;
    QString focused;
    Use(MainForm.Menu202, {[] { ExpectEverythingInPlace(EnemyDataEdit); }, [] { Type("Text1(4)", "256"); },
                           [&] {
                               Later(40, [&] {
                                   auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                                   ASSERT_NE(nullptr, box);
                                   message = box->text();
                                   box->accept();
                               });
                               Click("Command1");
                           },
                           [] {}, [] {}, [&] { focused = Window().focusWidget()->objectName(); },
                           [] { Type("Text1(4)", "2"), Type("Text1(2)", "48"); }, [] { Click("Command1"); }});
    EXPECT_TRUE(message.contains("BomType") && message.contains("255")) << message.toStdString();
    EXPECT_EQ(QString("Text1(4)"), focused);
    EXPECT_EQ(48, game.EnemyData[0].Width) << "the field beside the caption Height";
    EXPECT_EQ(before.Height, game.EnemyData[0].Height);
    EXPECT_EQ(2, game.EnemyData[0].BomType);
}

TEST_F(EditorOnScreenTest, TheMovementEditorCommitsOnEveryMoveAndPastesOnward) {
    Use(MainForm.Menu203, {[] { ExpectEverythingInPlace(EnemyMoveEdit); }, [] { Type("Text1", "3.5"); },
                           [] { The<QScrollBar>("HScroll1").triggerAction(QAbstractSlider::SliderSingleStepAdd); },
                           [] { Type("Text1", "9"), Type("Text4", "5"); }, [] { Click("Command5"); },
                           [] { Click("Command7"); }, [] { Click("Command7"); },
                           [] { EXPECT_EQ(3, The<QScrollBar>("HScroll1").value()); }, [] { Click("Command3"); }});
    EXPECT_EQ(3.5F, game.EneMove[0][0].DX);
    for (const int step : {1, 2}) {
        EXPECT_EQ(9, game.EneMove[0][step].DX);
        EXPECT_EQ(5, game.EneMove[0][step].Flag);
    }
    game.EneMove[0][2] = {};
    ASSERT_EQ("", ReadEneMove());
    EXPECT_EQ(9, game.EneMove[0][2].DX) << "saved to the file";
}

// Enter stores and goes to the next field, from the last one to the next record; arrows and page keys move the bars.
TEST_F(EditorOnScreenTest, EnterStoresAndGoesOnArrowsStepTheBars) {
    const auto press = [](const char* field, Qt::Key key) {
        The<QLineEdit>(field).setFocus();
        QTest::keyClick(&The<QLineEdit>(field), key);
    };
    Use(MainForm.Menu201,
        {[] { Type("Text4", "77"); }, [&] { press("Text4", Qt::Key_Return); },
         [] { EXPECT_EQ("Text5", Editor1.Focus); }, [] { Type("Text5", "9"); }, [&] { press("Text5", Qt::Key_Enter); },
         [] { EXPECT_EQ("Text1", Editor1.Focus); }, [&] { press("Text1", Qt::Key_Down); },
         [&] { press("Text1", Qt::Key_Down); }, [&] { press("Text1", Qt::Key_Up); },
         [] {
             EXPECT_EQ(2, Editor1["HScroll1"].Value);
             EXPECT_TRUE(The<QLineEdit>("Text4").toolTip().contains("0 to 32767"));
         }});
    EXPECT_EQ(77, game.StageData[0].Counter);
    EXPECT_EQ(9, game.StageData[0].Power);
    Use(MainForm.Menu203,
        {[&] { press("Text1", Qt::Key_PageDown); }, [] { Type("Text4", "5"); }, [&] { press("Text4", Qt::Key_Return); },
         [] {
             EXPECT_EQ(1, EnemyMoveEdit["VScroll1"].Value);
             EXPECT_EQ(1, EnemyMoveEdit["HScroll1"].Value);
         }});
    EXPECT_EQ(5, game.EneMove[1][0].Flag);
}

// Tab comes to every control in the order of the design.
TEST_F(EditorOnScreenTest, TabGoesThroughEveryWindowInItsOrder) {
    for (auto [item, form] : {std::pair{&MainForm.Menu201, &Editor1},
                              {&MainForm.Menu202, &EnemyDataEdit},
                              {&MainForm.Menu203, &EnemyMoveEdit}}) {
        std::map<int, std::string> wanted;
        std::vector<std::string> met;
        Use(*item, {[&, form = form] {
            for (const Control& control : form->Controls) {
                if (desktop::TakesFocus(control.Kind)) wanted[control.TabIndex] = control.Name;
            }
            for (std::size_t i = 0; i < wanted.size(); ++i) {
                met.push_back(Window().focusWidget()->objectName().toStdString());
                QTest::keyClick(Window().focusWidget(), Qt::Key_Tab);
            }
        }});
        std::vector<std::string> order;
        for (const auto& [tab, name] : wanted) order.push_back(name);
        EXPECT_EQ(order, met);
    }
}

}  // namespace
