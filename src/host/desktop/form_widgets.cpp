#include "host/desktop/form_widgets.h"

#include <QtCore/QSignalBlocker>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyleOptionFocusRect>
#include <QtWidgets/QStyleOptionSlider>
#include <QtWidgets/QStylePainter>
#include <algorithm>
#include <map>

namespace desktop {

namespace {

QRect RectOf(const Place& place) {
    return {place.Left, place.Top, place.Width, place.Height};
}

// Labels and fields do not treat "&" specially, so the doubling is undone here.
QString PlainCaption(const Control& control) {
    return QString::fromStdString(control.Caption).replace(QStringLiteral("&&"), QStringLiteral("&"));
}

// How far to the right a label may reach: to the next control on its line or the edge of its container.
int RightLimit(const QLabel& label, const QRect& place) {
    constexpr int kTouching = 2;  // neighbours whose places overlap by a pixel are neighbours all the same
    int limit = label.parentWidget()->width();
    for (const QWidget* other : label.parentWidget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        const QRect box = other->geometry();
        const bool onTheLine = box.top() <= place.bottom() && box.bottom() >= place.top();
        if (other != &label && onTheLine && box.left() > place.right() - kTouching) limit = std::min(limit, box.left());
    }
    return limit;
}

// A text longer than the label's place shows whole where there is room: the box grows away from the edge the text
// stands at. Where there is none, it ends in dots and is whole in the tool tip.
void SyncLabel(QLabel& label, const Control& control) {
    const QString text = PlainCaption(control);
    QRect box = RectOf(control.At);
    const int textWidth = label.fontMetrics().horizontalAdvance(text);
    const int wanted = std::max(box.width(), textWidth);
    if (control.RightAligned) {
        box.setLeft(box.right() + 1 - wanted);
    } else {
        box.setWidth(std::min(wanted, std::max(box.width(), RightLimit(label, box) - box.left())));
    }
    const bool fits = textWidth <= box.width();
    label.setText(fits ? text : label.fontMetrics().elidedText(text, Qt::ElideRight, box.width()));
    label.setToolTip(fits ? QString() : text);
    box.setHeight(std::max(box.height(), label.sizeHint().height()));
    label.setGeometry(box);
}

QWidget* MakeLabel(const Control& control, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignTop | (control.RightAligned ? Qt::AlignRight : Qt::AlignLeft));
    return label;
}

// Shows its text's beginning also when it is entered by Tab, which selects everything: the cursor stands in front.
class FormField final : public QLineEdit {
  public:
    using QLineEdit::QLineEdit;

  protected:
    void focusInEvent(QFocusEvent* event) override {
        QLineEdit::focusInEvent(event);
        const int length = static_cast<int>(text().size());
        if (length > 0 && selectedText().size() == length) setSelection(length, -length);
    }
};

QWidget* MakeButton(QWidget* parent) {
    auto* button = new QPushButton(parent);
    button->setAutoDefault(false);  // Enter presses the focused button only
    return button;
}

QWidget* MakeLine(QWidget* parent) {
    auto* line = new QFrame(parent);
    line->setFrameStyle(QFrame::HLine | QFrame::Plain);
    return line;
}

QWidget* MakeBare(const Control& control, QWidget* parent) {
    switch (control.Kind) {
        case ControlKind::label:
            return MakeLabel(control, parent);
        case ControlKind::textField:
            return new FormField(parent);
        case ControlKind::button:
            return MakeButton(parent);
        case ControlKind::hScroll:
        case ControlKind::vScroll:
            return new FormScrollBar(control, parent);
        case ControlKind::frame:
            return new QGroupBox(parent);
        case ControlKind::line:
            return MakeLine(parent);
    }
    return nullptr;
}

}  // namespace

FormScrollBar::FormScrollBar(const Control& control, QWidget* parent)
    : QScrollBar(control.Kind == ControlKind::hScroll ? Qt::Horizontal : Qt::Vertical, parent) {
    setRange(control.Min, control.Max);
    setSingleStep(control.SmallChange);
    setPageStep(control.LargeChange);
    setTracking(false);
    setFocusPolicy(Qt::StrongFocus);
    setContextMenuPolicy(Qt::NoContextMenu);
}

void FormScrollBar::keyPressEvent(QKeyEvent* event) {
    static const std::map<int, SliderAction> kActions = {
        {Qt::Key_Left, SliderSingleStepSub}, {Qt::Key_Up, SliderSingleStepSub},   {Qt::Key_Right, SliderSingleStepAdd},
        {Qt::Key_Down, SliderSingleStepAdd}, {Qt::Key_PageUp, SliderPageStepSub}, {Qt::Key_PageDown, SliderPageStepAdd},
        {Qt::Key_Home, SliderToMinimum},     {Qt::Key_End, SliderToMaximum},
    };
    const auto action = kActions.find(event->key());
    if (action == kActions.end()) return event->ignore();
    triggerAction(action->second);
}

void FormScrollBar::paintEvent(QPaintEvent* event) {
    QScrollBar::paintEvent(event);
    if (!hasFocus()) return;
    constexpr int kInset = 3;
    QStyleOptionSlider bar;
    initStyleOption(&bar);
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.rect = style()
                     ->subControlRect(QStyle::CC_ScrollBar, &bar, QStyle::SC_ScrollBarSlider, this)
                     .adjusted(kInset, kInset, -kInset, -kInset);
    focus.backgroundColor = palette().color(QPalette::Button);
    QStylePainter(this).drawPrimitive(QStyle::PE_FrameFocusRect, focus);
}

void FormScrollBar::focusInEvent(QFocusEvent* event) {
    QScrollBar::focusInEvent(event);
    update();
}

void FormScrollBar::focusOutEvent(QFocusEvent* event) {
    QScrollBar::focusOutEvent(event);
    update();
}

void LetGo(QScrollBar& bar) {
    const QPointF outside(-1, -1);
    QMouseEvent release(QEvent::MouseButtonRelease, outside, bar.mapToGlobal(outside), Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QApplication::sendEvent(&bar, &release);
}

QWidget* MakeWidget(const Control& control, QWidget* parent) {
    QWidget* widget = MakeBare(control, parent);
    constexpr int kLineWidth = 1;  // a line's place may have no height
    QRect place = RectOf(control.At);
    if (control.Kind == ControlKind::line) place.setHeight(std::max(place.height(), kLineWidth));
    widget->setGeometry(place);
    widget->setObjectName(QString::fromStdString(control.Name));
    widget->setToolTip(QString::fromStdString(control.Tip));
    SyncWidget(*widget, control);
    return widget;
}

void SyncWidget(QWidget& widget, const Control& control) {
    const QSignalBlocker quiet(&widget);
    if (auto* label = qobject_cast<QLabel*>(&widget)) {
        SyncLabel(*label, control);
    } else if (auto* field = qobject_cast<QLineEdit*>(&widget)) {
        const QString text = QString::fromStdString(control.Text);
        if (field->text() == text) return;
        field->setText(text);
        field->setCursorPosition(0);  // a long number shows its sign and first digits
    } else if (auto* button = qobject_cast<QPushButton*>(&widget)) {
        button->setText(QString::fromStdString(control.Caption));
    } else if (auto* bar = qobject_cast<QScrollBar*>(&widget)) {
        if (bar->value() != control.Value) bar->setValue(control.Value);
    } else if (auto* frame = qobject_cast<QGroupBox*>(&widget)) {
        frame->setTitle(QString::fromStdString(control.Caption));
    }
}

bool TakesFocus(ControlKind kind) {
    using enum ControlKind;
    return kind == textField || kind == button || kind == hScroll || kind == vScroll;
}

}  // namespace desktop
