// A form on screen. Widgets only queue what the user did; it is carried out on the form's data by Run, and the widgets
// are then made to show the data.
#pragma once

#include <QtWidgets/QDialog>
#include <deque>
#include <map>
#include <string>

#include "toolkit/forms.h"

namespace desktop {

class FormWindow final : public QDialog {
  public:
    FormWindow(Form& form, QWidget* parent);

    // Carries out what is queued, in order, until nothing is left or the form is closed. Handlers run in here.
    void Run();

    // Shows the data as it is now: texts, captions, values, focus. A scroll bar that was taken back moves back.
    void Sync();

    void reject() override;  // Esc
    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

  private:
    enum class Act { focus, type, click, scroll, enter, close };
    struct Done {
        Act act;
        std::string name{};
        std::string text{};
        int value = 0;
    };
    void Build();
    void Connect(QWidget& widget, const Control& control);
    void ChainTabs();
    bool StepBar(int key);
    void CarryOut(const Done& done);
    void Scroll(const Done& done);
    const Control* FocusedControl() const;
    void SyncFocus();
    void LetGoOfScrollBars();

    Form& form_;
    std::map<std::string, QWidget*> widgets_;
    std::vector<const Control*> tabOrder_;
    std::deque<Done> queue_;
};

}  // namespace desktop
