// The bench's window: shows what the desk says, tells it what the author does. Nothing of it is there in a normal
// start.
#pragma once

#include <QtCore/QTimer>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSlider>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QWidget>
#include <vector>

#include "author/desk.h"
#include "bench_window/drawing_view.h"
#include "bench_window/entry_list.h"
#include "bench_window/kind_view.h"
#include "host/desktop/desktop.h"

class QBoxLayout;
class QLayout;

namespace bench_window {

class BenchWindow final : public QWidget {
  public:
    // Watches the games that come and gives the host its keys. Before Main, after everything else that watches games.
    // It wakes, reads the tables and has a say in what games play, when it is called for the first time, or when there
    // is unsaved work of last time to offer.
    explicit BenchWindow(desktop::Host& host);

    Desk& TheDesk() { return desk_; }
    const DrawingView& Field() const { return *field_; }
    // Makes everything show what the desk has now.
    void Refresh();
    // Onto the screen and to the front; ComeOrGo: away again if it is there.
    void Come();
    void ComeOrGo();

  private:
    bool Wake();
    void TableLoaded(int table);
    void Build();
    QWidget* LeftSide();
    QWidget* FieldTab();
    QWidget* KindTab();
    QLayout* PlayRows();
    QLayout* Fields(DeskPlace place);
    void AddGroup(QBoxLayout& column, const QString& title, QLayout* content);
    void AddButtons(QBoxLayout& row, DeskPlace place);
    QPushButton* Button(const QString& caption, const QString& tip, std::function<void()> press);
    void AddKeys(desktop::Host& host);
    void PressNamed(const char* caption);
    void UseMouse(DrawingView::Mouse what, DrawnPoint at, bool fine);
    void Pulse();
    void PlayFromHere();
    void PlayLastAgain();
    void StandStill();
    void RefreshHistory();

    struct FieldEdit {
        const DeskField* field;
        QLineEdit* edit;
    };

    desktop::Host& host_;
    Desk desk_;
    bool awake_ = false;
    int played_ = -1;  // the table of the last game
    QTimer pulse_;
    QTimer reminder_;  // of what was not saved the last time, once the loop runs
    int pulses_ = 0;
    int shown_ = -1;  // the changes of the tables that are shown
    bool refreshing_ = false;
    QComboBox* table_ = nullptr;
    EntryList* list_ = nullptr;
    DrawingView* field_ = nullptr;
    KindView* kind_ = nullptr;
    QComboBox* kinds_ = nullptr;
    QSlider* time_ = nullptr;
    QLabel* timeText_ = nullptr;
    QLabel* caption_ = nullptr;
    QLabel* message_ = nullptr;
    QLabel* finding_ = nullptr;
    QListWidget* history_ = nullptr;
    QWidget* offer_ = nullptr;
    QLabel* offerText_ = nullptr;
    QPushButton* accept_ = nullptr;
    QPushButton* refuse_ = nullptr;
    std::vector<FieldEdit> edits_;
};

}  // namespace bench_window
