// One widget per control of a form, at exactly the control's place.
#pragma once

#include <QtWidgets/QScrollBar>
#include <QtWidgets/QWidget>

#include "toolkit/forms.h"

namespace desktop {

// A scroll bar that shows that it has the keyboard. It reports a drag of its box once, when the box is dropped.
class FormScrollBar final : public QScrollBar {
  public:
    FormScrollBar(const Control& control, QWidget* parent);

  protected:
    // Left and Up go back, Right and Down go on, whichever way the bar lies. Qt's own keys differ from bar to bar.
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};

// Ends a press on the bar whose release another window will get.
void LetGo(QScrollBar& bar);

// The widget of `control`, child of `parent` (the form or its frame), without any connections yet.
QWidget* MakeWidget(const Control& control, QWidget* parent);

// Caption, text and value as the model has them now; no signal is sent.
void SyncWidget(QWidget& widget, const Control& control);

// Whether the keyboard can be in controls of this kind.
bool TakesFocus(ControlKind kind);

}  // namespace desktop
