// The list of the player's runs: what to do with which is told to whoever opened it.
#pragma once

#include <QtWidgets/QWidget>
#include <functional>
#include <string>
#include <vector>

#include "recording/keeper.h"

class QLabel;
class QPushButton;
class QTableWidget;

namespace runs_window {

enum class Deed { play, takeOver, race };

class RunsWindow final : public QWidget {
  public:
    // `chosen` is called with a run's file; the window hides before.
    explicit RunsWindow(std::function<void(Deed, const std::string&)> chosen);

    // Onto the screen and to the front, with the runs there are now.
    void Come();

  private:
    void Build();
    void Load();
    void Fill(int row, const KeptRun& kept);
    QPushButton* Button(const QString& caption, const QString& tip, std::function<void()> press);
    const KeptRun* Chosen() const;
    void Do(Deed deed);
    void Share();
    void SaveAs();
    void Rename();
    void Keep();
    void Delete();
    void Undo();
    void Say(const std::string& problem, const QString& done);
    void Refresh();

    std::function<void(Deed, const std::string&)> chosen_;
    std::vector<KeptRun> runs_;
    std::vector<std::string> deleted_;  // last ones last
    QTableWidget* table_ = nullptr;
    QLabel* message_ = nullptr;
    QPushButton* undo_ = nullptr;
    QPushButton* keep_ = nullptr;
    std::vector<QPushButton*> forAny_;    // buttons for any run that is chosen
    std::vector<QPushButton*> forWhole_;  // and for one that is not damaged
};

}  // namespace runs_window
