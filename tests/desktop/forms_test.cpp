// Forms on screen: a form with every kind of control, typed into and clicked.
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>

#include "desktop_test.h"
#include "host/desktop/form_window.h"
#include "toolkit/forms.h"

namespace {

Form form;
std::vector<std::string> log_;  // what the handlers saw

void Ok_Click() {
    log_.push_back("ok " + form["Text1"].Text + "," + form["Text2"].Text);
}
void Rewrite_Click() {
    form["Text1"].Text = "rewritten";
    form["Label1"].Caption = "7";
    form.Focus = "Text2";
}
void Jump_Click() {
    SetScrollValue(form, "HScroll1", form["HScroll1"].Value + 5);
}
void Tell_Click() {
    form["Text1"].Text = "told";
    MsgBox("message", "caption");
}
void Close_Click() {
    form.Shown = false;
}
void HScroll1_Change() {
    log_.push_back("h " + std::to_string(form["HScroll1"].Value));
}
// Refuses to go beyond 3.
void VScroll1_Change() {
    log_.push_back("v " + std::to_string(form["VScroll1"].Value));
    if (form["VScroll1"].Value > 3) form["VScroll1"].Value = 3;
}

Control With(Control control, std::string caption, Handler event = nullptr) {
    control.Caption = std::move(caption);
    control.Event = event;
    return control;
}

Control Bar(ControlKind kind, const char* name, Place at, int tab, Handler change) {
    Control bar{kind, name, at, tab};
    bar.Max = 20;
    bar.LargeChange = 4;
    bar.Event = change;
    return bar;
}

Control In(Control control, const char* frame) {
    control.Container = frame;
    return control;
}

// The tab order runs against the order of the list.
std::vector<Control> Design() {
    using enum ControlKind;
    Control right = With({label, "Label2", {150, 8, 40, 17}, 21}, "right");
    right.RightAligned = true;
    return {
        Bar(vScroll, "VScroll1", {200, 8, 17, 100}, 9, VScroll1_Change),
        Bar(hScroll, "HScroll1", {8, 120, 193, 17}, 8, HScroll1_Change),
        With({button, "Close", {140, 170, 60, 25}, 7}, "Close", Close_Click),
        With({button, "Tell", {8, 170, 60, 25}, 6}, "Tell", Tell_Click),
        With({button, "Jump", {74, 170, 60, 25}, 5}, "Jump", Jump_Click),
        In(With({button, "Rewrite", {8, 40, 73, 17}, 4}, "Past && Inc", Rewrite_Click), "Frame1"),
        With({button, "Ok", {74, 143, 60, 25}, 3}, "Ok", Ok_Click),
        {textField, "Text2", {80, 32, 57, 18}, 2},
        {textField, "Text1", {8, 32, 57, 25}, 1},
        With({label, "Label1", {8, 8, 25, 17}, 20}, "0"),
        right,
        With({frame, "Frame1", {8, 55, 180, 62}, 22}, "Frame"),
        {line, "Line1", {8, 140, 192, 0}, 23},
    };
}

class FormTest : public DesktopTest {
  protected:
    FormTest() {
        form = Form{"TestForm", "テスト", 220, 200, nullptr, Design};
        form.Controls = Design();
        log_.clear();
    }

    static desktop::FormWindow& Window() { return *desktop::TheHost().form; }
    template <class Widget>
    static Widget& The(const char* name) {
        return *Window().findChild<Widget*>(name);
    }

    // Opens the form, lets each step of the user be carried out, then closes it.
    static void Use(std::vector<std::function<void()>> steps) {
        int ms = 50;
        for (auto& step : steps) Later(ms += 30, std::move(step));
        Later(ms + 60, [] {
            if (form.Shown) Window().close();
        });
        ShowModal(form);
        EXPECT_FALSE(form.Shown);
        EXPECT_EQ(nullptr, desktop::TheHost().form);
    }
};

TEST_F(FormTest, EveryControlStandsAtItsPlace) {
    Use({[] {
        EXPECT_EQ(QSize(220, 200), Window().size());
        EXPECT_EQ(Window().minimumSize(), Window().maximumSize());
        EXPECT_EQ(QString("テスト"), Window().windowTitle());
        for (const Control& control : form.Controls) {
            const QWidget& widget = The<QWidget>(control.Name.c_str());
            EXPECT_EQ(QPoint(control.At.Left, control.At.Top), widget.pos()) << control.Name;
            if (control.Kind == ControlKind::line) continue;
            EXPECT_EQ(QSize(control.At.Width, control.At.Height), widget.size()) << control.Name;
        }
        EXPECT_EQ(&The<QGroupBox>("Frame1"), The<QPushButton>("Rewrite").parentWidget());
        EXPECT_EQ(1, The<QWidget>("Line1").height());
    }});
}

TEST_F(FormTest, LabelsShowTheirTextWholeWhereThereIsRoom) {
    form["Label1"].Caption = "a longer text";
    form["Label2"].Caption = "right edge";
    Use({[] {
        const QLabel& left = The<QLabel>("Label1");
        EXPECT_EQ(8, left.x());
        EXPECT_EQ(QString("a longer text"), left.text());
        EXPECT_GE(left.width(), left.fontMetrics().horizontalAdvance(left.text()));
        const QLabel& right = The<QLabel>("Label2");
        EXPECT_EQ(189, right.geometry().right());
        EXPECT_TRUE(right.alignment() & Qt::AlignRight);
        EXPECT_GE(right.width(), right.fontMetrics().horizontalAdvance(right.text()));
    }});
}

TEST_F(FormTest, ALabelWithoutRoomEndsInDotsAndTellsTheRest) {
    const QString text = "3.07500004768372 and more of it, and still more";
    form["Label1"].Caption = text.toStdString();
    Use({[text] {
        const QLabel& label = The<QLabel>("Label1");
        EXPECT_LE(label.geometry().right(), 150) << "it runs into its neighbour";
        EXPECT_TRUE(label.text().endsWith(QChar(0x2026)));
        EXPECT_EQ(text, label.toolTip());
    }});
}

TEST_F(FormTest, ADoubledAmpersandShowsAsOne) {
    form["Label1"].Caption = "a && b";
    Use({[] {
        EXPECT_EQ(QString("a & b"), The<QLabel>("Label1").text());
        EXPECT_EQ(QString("Past && Inc"), The<QPushButton>("Rewrite").text()) << "a button undoes the doubling itself";
        EXPECT_TRUE(The<QPushButton>("Rewrite").shortcut().isEmpty());
    }});
}

TEST_F(FormTest, TabFollowsTheTabOrderThroughFieldsButtonsAndBars) {
    QStringList visited;
    Use({[&visited] {
        for (std::size_t i = 0; i < form.Controls.size(); ++i) {
            visited += Window().focusWidget()->objectName();
            QTest::keyClick(Window().focusWidget(), Qt::Key_Tab);
        }
    }});
    const QStringList expected{"Text1",    "Text2",    "Ok",    "Rewrite", "Jump", "Tell",   "Close",
                               "HScroll1", "VScroll1", "Text1", "Text2",   "Ok",   "Rewrite"};
    EXPECT_EQ(expected, visited);
}

TEST_F(FormTest, WhatIsTypedIsStoredBeforeTheButtonThatFollows) {
    Use({[] {
        EXPECT_EQ(&The<QLineEdit>("Text1"), Window().focusWidget());
        EXPECT_TRUE(The<QLineEdit>("Text1").hasSelectedText() || The<QLineEdit>("Text1").text().isEmpty());
        QTest::keyClicks(&The<QLineEdit>("Text1"), "12");
        QTest::keyClick(&The<QLineEdit>("Text1"), Qt::Key_Tab);
        QTest::keyClicks(&The<QLineEdit>("Text2"), "-3.5");
        QTest::mouseClick(&The<QPushButton>("Ok"), Qt::LeftButton);
        QTest::mouseClick(&The<QLineEdit>("Text2"), Qt::LeftButton);
        QTest::keyClicks(&The<QLineEdit>("Text2"), "9");
    }});
    EXPECT_EQ(std::vector<std::string>{"ok 12,-3.5"}, log_);
    EXPECT_EQ("-3.59", form["Text2"].Text);
    EXPECT_EQ("Text2", form.Focus);
}

TEST_F(FormTest, TypingReplacesTheTextOfAFieldThatTabCameTo) {
    form["Text2"].Text = "old";
    Use({[] {
        QTest::keyClick(Window().focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QString("old"), The<QLineEdit>("Text2").selectedText());
        EXPECT_EQ(0, The<QLineEdit>("Text2").cursorPosition()) << "a long text shows its end";
        QTest::keyClicks(Window().focusWidget(), "new");
    }});
    EXPECT_EQ("new", form["Text2"].Text);
}

TEST_F(FormTest, TheWidgetsFollowWhatAHandlerChanges) {
    Use({[] { QTest::mouseClick(&The<QPushButton>("Rewrite"), Qt::LeftButton); },
         [] {
             EXPECT_EQ(QString("rewritten"), The<QLineEdit>("Text1").text());
             EXPECT_EQ(0, The<QLineEdit>("Text1").cursorPosition()) << "a long text shows its end";
             EXPECT_EQ(QString("7"), The<QLabel>("Label1").text());
             EXPECT_EQ(&The<QLineEdit>("Text2"), Window().focusWidget());
         }});
    EXPECT_EQ("Text2", form.Focus);
}

TEST_F(FormTest, EnterPressesTheFocusedButtonOnly) {
    Use({[] { QTest::keyClick(Window().focusWidget(), Qt::Key_Return); },
         [] {
             The<QPushButton>("Jump").setFocus();
             QTest::keyClick(&The<QPushButton>("Jump"), Qt::Key_Enter);
         }});
    EXPECT_EQ(std::vector<std::string>{"h 5"}, log_);
}

TEST_F(FormTest, ScrollBarsMoveByArrowTroughKeyAndWheel) {
    Use({[] {
        QScrollBar& bar = The<QScrollBar>("HScroll1");
        QTest::mouseClick(&bar, Qt::LeftButton, {}, QPoint(bar.width() - 5, 8));   // arrow
        QTest::mouseClick(&bar, Qt::LeftButton, {}, QPoint(bar.width() - 25, 8));  // trough
        QTest::keyClick(&bar, Qt::Key_Left);
        QTest::keyClick(&bar, Qt::Key_PageDown);
        QTest::keyClick(&bar, Qt::Key_Up);
        QTest::keyClick(&bar, Qt::Key_Right);
        QTest::keyClick(&bar, Qt::Key_Down);
        QTest::keyClick(&bar, Qt::Key_PageUp);
        QTest::keyClick(&bar, Qt::Key_End);
        QTest::keyClick(&bar, Qt::Key_Home);
        const QPointF middle(bar.width() / 2.0, 8);
        QWheelEvent notch(middle, bar.mapToGlobal(middle), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&bar, &notch);
    }});
    EXPECT_EQ((std::vector<std::string>{"h 1", "h 5", "h 4", "h 8", "h 7", "h 8", "h 9", "h 5", "h 20", "h 0", "h 1"}),
              log_);
    EXPECT_EQ(1, form["HScroll1"].Value);
    EXPECT_EQ("HScroll1", form.Focus);
}

TEST_F(FormTest, ADragCountsOnceWhenTheBoxIsDropped) {
    Use({[] { The<QScrollBar>("HScroll1").setSliderDown(true); },
         [] { The<QScrollBar>("HScroll1").setSliderPosition(4); },
         [] {
             EXPECT_EQ(4, The<QScrollBar>("HScroll1").sliderPosition()) << "the drag was broken off";
             EXPECT_TRUE(log_.empty());
             The<QScrollBar>("HScroll1").setSliderPosition(9);
         },
         [] { The<QScrollBar>("HScroll1").setSliderDown(false); }});
    EXPECT_EQ(std::vector<std::string>{"h 9"}, log_);
}

TEST_F(FormTest, AMoveAHandlerMakesRunsTheChangeOnce) {
    Use({[] { QTest::mouseClick(&The<QPushButton>("Jump"), Qt::LeftButton); },
         [] { EXPECT_EQ(5, The<QScrollBar>("HScroll1").value()); }});
    EXPECT_EQ(std::vector<std::string>{"h 5"}, log_);
}

TEST_F(FormTest, AMoveThatIsTakenBackMovesTheBarBack) {
    Use({[] {
             QScrollBar& bar = The<QScrollBar>("VScroll1");
             for (int i = 0; i < 6; ++i) QTest::keyClick(&bar, Qt::Key_Down);
         },
         [] {
             EXPECT_EQ(3, The<QScrollBar>("VScroll1").value());
             EXPECT_EQ(3, The<QScrollBar>("VScroll1").sliderPosition());
         }});
    EXPECT_EQ((std::vector<std::string>{"v 1", "v 2", "v 3", "v 4"}), log_) << "moves on from the refused place count";
    EXPECT_EQ(3, form["VScroll1"].Value);
}

TEST_F(FormTest, AMessageBoxShowsTheFormAsItIsAndWaits) {
    Later(250, [] {
        EXPECT_EQ(QString("told"), The<QLineEdit>("Text1").text());
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(nullptr, box);
        EXPECT_EQ(QString("message"), box->text());
        EXPECT_EQ(QString("caption"), box->windowTitle());
        EXPECT_EQ(QMessageBox::Ok, box->standardButtons());
        box->button(QMessageBox::Ok)->click();
    });
    Later(350, [] {
        EXPECT_TRUE(form.Shown);
        Window().close();
    });
    Later(60, [] { QTest::mouseClick(&The<QPushButton>("Tell"), Qt::LeftButton); });
    ShowModal(form);
}

TEST_F(FormTest, AHeldArrowStopsWhenAMessageBoxComesUp) {
    form["VScroll1"].Event = [] {
        log_.push_back("v " + std::to_string(form["VScroll1"].Value));
        MsgBox("stop", "stop");
    };
    Later(60, [] {
        QScrollBar& bar = The<QScrollBar>("VScroll1");
        QTest::mousePress(&bar, Qt::LeftButton, {}, QPoint(8, bar.height() - 5));
    });
    Later(200, [] { QApplication::activeModalWidget()->close(); });
    Later(1200, [] {  // longer than the delay before an arrow repeats
        if (QApplication::activeModalWidget() != &Window()) QApplication::activeModalWidget()->close();
        Window().close();
    });
    ShowModal(form);
    EXPECT_EQ(std::vector<std::string>{"v 1"}, log_);
}

TEST_F(FormTest, EscapeTheCloseButtonAndTheProgramCloseIt) {
    const std::function<void()> ways[] = {[] { QTest::keyClick(Window().focusWidget(), Qt::Key_Escape); },
                                          [] { Window().close(); },
                                          [] { QTest::mouseClick(&The<QPushButton>("Close"), Qt::LeftButton); }};
    for (const auto& way : ways) {
        bool closedInTime = true;
        Later(60, way);
        QTimer late;
        late.callOnTimeout([&closedInTime] {
            closedInTime = false;
            form.Shown = false;
        });
        late.start(2000);
        ShowModal(form);
        EXPECT_TRUE(closedInTime);
    }
}

TEST_F(FormTest, TimersGoOnWhileItIsOpen) {
    static int ticks;
    ticks = 0;
    MainForm.Bgm_Check = {50, true, [] { ++ticks; }};
    Later(400, [] { Window().close(); });
    ShowModal(form);
    EXPECT_GE(ticks, 3);
}

TEST_F(FormTest, NothingDoneToItReachesTheGame) {
    Pump();
    Use({[] { QTest::keyClicks(Window().focusWidget(), "xz "); }});
    for (const InputEvent& event : Pump()) EXPECT_EQ(InputEvent::Kind::allKeysUp, event.kind);
}

TEST_F(FormTest, AnEndOfTheProgramPassesThroughAHandler) {
    form["Ok"].Event = [] { throw EndProgram{}; };
    Later(60, [] { QTest::mouseClick(&The<QPushButton>("Ok"), Qt::LeftButton); });
    EXPECT_THROW(ShowModal(form), EndProgram);
    EXPECT_FALSE(form.Shown);
    EXPECT_EQ(nullptr, desktop::TheHost().form);
}

}  // namespace
