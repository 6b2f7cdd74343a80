#include "host/desktop/form_window.h"

#include <QtGui/QCloseEvent>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>
#include <algorithm>

#include "host/desktop/form_widgets.h"
#include "host/desktop/placing.h"

namespace desktop {

FormWindow::FormWindow(Form& form, QWidget* parent) : QDialog(parent, kFixedWindow | Qt::Dialog), form_(form) {
    setWindowTitle(QString::fromStdString(form.Caption));
    setModal(true);
    setFixedSize(form.ClientWidth, form.ClientHeight);
    Build();
    ChainTabs();
    Sync();
}

// Frames first, so that what lies in them has its parent.
void FormWindow::Build() {
    for (const bool framesNow : {true, false}) {
        for (const Control& control : form_.Controls) {
            if ((control.Kind == ControlKind::frame) != framesNow) continue;
            QWidget* container = control.Container.empty() ? this : widgets_.at(control.Container);
            QWidget* widget = MakeWidget(control, container);
            if (qobject_cast<QLabel*>(widget)) widget->lower();  // a long text goes under its neighbours
            widgets_[control.Name] = widget;
            Connect(*widget, control);
        }
    }
}

void FormWindow::Connect(QWidget& widget, const Control& control) {
    const std::string name = control.Name;
    if (auto* field = qobject_cast<QLineEdit*>(&widget)) {
        connect(field, &QLineEdit::textEdited, this, [this, name](const QString& text) {
            queue_.push_back({Act::type, name, text.toStdString()});
        });
    } else if (auto* button = qobject_cast<QPushButton*>(&widget)) {
        connect(button, &QPushButton::clicked, this, [this, name] { queue_.push_back({Act::click, name}); });
    } else if (auto* bar = qobject_cast<QScrollBar*>(&widget)) {
        connect(bar, &QScrollBar::valueChanged, this, [this, name](int value) {
            queue_.push_back({Act::scroll, name, {}, value});
        });
    }
    if (TakesFocus(control.Kind)) widget.installEventFilter(this);
}

void FormWindow::ChainTabs() {
    for (const Control& control : form_.Controls) {
        if (TakesFocus(control.Kind)) tabOrder_.push_back(&control);
    }
    std::stable_sort(tabOrder_.begin(), tabOrder_.end(),
                     [](const Control* a, const Control* b) { return a->TabIndex < b->TabIndex; });
    for (std::size_t i = 1; i < tabOrder_.size(); ++i) {
        setTabOrder(widgets_.at(tabOrder_[i - 1]->Name), widgets_.at(tabOrder_[i]->Name));
    }
}

void FormWindow::Run() {
    if (queue_.empty()) return;
    while (!queue_.empty() && form_.Shown) {
        const Done done = queue_.front();
        queue_.pop_front();
        CarryOut(done);
    }
    Sync();
}

void FormWindow::CarryOut(const Done& done) {
    switch (done.act) {
        case Act::focus:
            form_.Focus = done.name;
            break;
        case Act::type:
            TypeText(form_, done.name, done.text);
            break;
        case Act::click:
            ClickButton(form_, done.name);
            break;
        case Act::scroll:
            Scroll(done);
            break;
        case Act::enter:
            if (form_.Enter) form_.Enter();
            break;
        case Act::close:
            form_.Shown = false;
            break;
    }
}

// Moves that were made on from a place the handler has refused are refused with it.
void FormWindow::Scroll(const Done& done) {
    SetScrollValue(form_, done.name, done.value);
    if (form_[done.name].Value == done.value) return;
    std::erase_if(queue_, [&](const Done& later) { return later.act == Act::scroll && later.name == done.name; });
}

void FormWindow::Sync() {
    for (const Control& control : form_.Controls) SyncWidget(*widgets_.at(control.Name), control);
    SyncFocus();
}

const Control* FormWindow::FocusedControl() const {
    for (const Control* control : tabOrder_) {
        if (control->Name == form_.Focus) return control;
    }
    return form_.Focus.empty() && !tabOrder_.empty() ? tabOrder_.front() : nullptr;
}

void FormWindow::SyncFocus() {
    const Control* control = FocusedControl();
    if (!control) return;
    QWidget* widget = widgets_.at(control->Name);
    if (focusWidget() != widget) widget->setFocus(Qt::TabFocusReason);  // as by Tab: the field's text is selected
}

// Only the user's own moves count: when the window comes back to the front, the data already say where the focus is.
bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        const bool byUser = reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
        if (byUser) queue_.push_back({Act::focus, watched->objectName().toStdString()});
    }
    return QDialog::eventFilter(watched, event);
}

void FormWindow::reject() {
    queue_.push_back({Act::close});
}

void FormWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    reject();
}

// What a text field leaves over: the arrows go through the records, the page keys through what lies above them.
bool FormWindow::StepBar(int key) {
    const bool back = key == Qt::Key_Up || key == Qt::Key_PageUp,
               page = key == Qt::Key_PageUp || key == Qt::Key_PageDown;
    if (!back && key != Qt::Key_Down && key != Qt::Key_PageDown) return false;
    QScrollBar* chosen = nullptr;
    for (QScrollBar* bar : findChildren<QScrollBar*>()) {
        if (!chosen || (bar->orientation() == Qt::Vertical) == page) chosen = bar;
    }
    if (chosen) chosen->triggerAction(back ? QScrollBar::SliderSingleStepSub : QScrollBar::SliderSingleStepAdd);
    return chosen != nullptr;
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
    auto* field = qobject_cast<QLineEdit*>(focusWidget());
    if (field && StepBar(event->key())) return;
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter) return QDialog::keyPressEvent(event);
    if (event->isAutoRepeat()) return;
    if (auto* button = qobject_cast<QPushButton*>(focusWidget())) button->click();
    if (!field) return;
    queue_.push_back({Act::focus, field->objectName().toStdString()});
    queue_.push_back({Act::enter});
}

// A message box takes the mouse's release; an arrow that was held would scroll on for ever.
bool FormWindow::event(QEvent* event) {
    if (event->type() == QEvent::WindowBlocked) LetGoOfScrollBars();
    return QDialog::event(event);
}

void FormWindow::LetGoOfScrollBars() {
    for (QScrollBar* bar : findChildren<QScrollBar*>()) LetGo(*bar);
}

}  // namespace desktop
