// The list of runs on the offscreen window system.
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTableWidget>
#include <fstream>

#include "desktop_test.h"
#include "recording/keeper.h"
#include "runs_window/runs_window.h"
#include "toolkit/folder.h"

namespace {

using runs_window::Deed;

class RunsWindowTest : public DesktopTest {
  protected:
    RunsWindowTest() {
        SetProgramFolder(folder.path.string());
        ::Run run;
        for (const auto& [date, score] : {std::pair{"2026-01-01 10:00:00", 50}, {"2026-01-02 10:00:00", 7}}) {
            run.date = date;
            run.recording.endScore = score;
            EXPECT_EQ("", KeepRun(run));
        }
        std::ofstream(RunsFolder() + "/bad.tarnveil-run") << "no run";
        window.Come();
    }
    ~RunsWindowTest() override { SetProgramFolder("."); }

    QTableWidget& Table() { return *window.findChild<QTableWidget*>(); }
    QString Cell(int row, int column) { return Table().item(row, column)->text(); }
    QPushButton* Button(const QString& caption) {
        for (QPushButton* button : window.findChildren<QPushButton*>()) {
            if (button->text() == caption) return button;
        }
        return nullptr;
    }

    TemporaryFolder folder{{}};
    std::vector<std::pair<Deed, std::string>> chosen;
    runs_window::RunsWindow window{[this](Deed deed, const std::string& path) { chosen.emplace_back(deed, path); }};
};

}  // namespace

TEST_F(RunsWindowTest, ListsTheNewestFirstAndDamagedOnesAsSuch) {
    ASSERT_EQ(3, Table().rowCount());
    EXPECT_EQ("2026-01-02 10:00:00", Cell(0, 0));
    EXPECT_EQ("50", Cell(1, 4));
    EXPECT_EQ("bad", Cell(2, 0));
    EXPECT_TRUE(Cell(2, 8).startsWith("damaged"));
    Table().selectRow(2);
    EXPECT_FALSE(Button("Play")->isEnabled());
    EXPECT_TRUE(Button("Delete")->isEnabled());
}

TEST_F(RunsWindowTest, DeletesWithUndoKeepsAndTellsWhatIsChosen) {
    Table().selectRow(1);
    Button("Delete")->click();
    EXPECT_EQ(2, Table().rowCount());
    EXPECT_EQ(1u, FilesIn(RunsFolder(), "00.tarnveil-run").size());
    Button("Undo")->click();
    ASSERT_EQ(3, Table().rowCount());
    EXPECT_FALSE(Button("Undo")->isEnabled());
    Table().selectRow(1);
    Button("Keep")->click();
    EXPECT_EQ("kept", Cell(1, 8));
    EXPECT_TRUE(ListRuns()[1].run.kept);
    Table().sortItems(4, Qt::AscendingOrder);
    Table().selectRow(2);
    Button("Race")->click();
    ASSERT_EQ(1u, chosen.size());
    EXPECT_EQ(Deed::race, chosen[0].first);
    EXPECT_NE(std::string::npos, chosen[0].second.find("2026-01-01")) << "the best score, whatever the order";
    EXPECT_FALSE(window.isVisible());
}
