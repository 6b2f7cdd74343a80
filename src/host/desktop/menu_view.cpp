#include "host/desktop/menu_view.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>

#include "state/main_form.h"

namespace desktop {

namespace {

void SyncAction(QAction& action, const MenuItem& item) {
    action.setText(QString::fromUtf8(item.Caption));
    action.setEnabled(item.Enabled);
    action.setCheckable(item.Checked);
    action.setChecked(item.Checked);
}

}  // namespace

MenuView::MenuView(QMenuBar& bar, std::vector<InputEvent>& events) : bar_(bar), events_(events) {
    bar.setNativeMenuBar(false);  // a desktop's global bar would take it out of the window
    QMenu* popup = nullptr;
    for (const auto member : kMenuBar) {
        const MenuItem& item = MainForm.*member;
        if (item.IsPopup) {
            popup = AddPopup(item);
        } else if (item.IsSeparator()) {
            popup->addSeparator();
        } else {
            AddItem(*popup, item);
        }
    }
    Sync();
}

QMenu* MenuView::AddPopup(const MenuItem& item) {
    QMenu* popup = bar_.addMenu(QString());
    rows_.push_back({&item, popup->menuAction()});
    QObject::connect(popup, &QMenu::aboutToShow, popup, [this] {
        popupClosed_ = false;
        Sync();
    });
    QObject::connect(popup, &QMenu::aboutToHide, popup, [this] { popupClosed_ = true; });
    return popup;
}

void MenuView::AddItem(QMenu& popup, const MenuItem& item) {
    QAction* action = popup.addAction(QString());
    rows_.push_back({&item, action});
    QObject::connect(action, &QAction::triggered, action, [this, action, &item] {
        InputEvent click{InputEvent::Kind::menu};
        click.item = item.Name;
        events_.push_back(click);
        SyncAction(*action, item);  // takes back Qt's own toggling
    });
}

void MenuView::Sync() {
    for (const Row& row : rows_) SyncAction(*row.action, *row.item);
}

bool MenuView::IsOpen() const {
    const bool marked = bar_.hasFocus() && bar_.activeAction();  // the mouse marks items too, without the keyboard
    return QApplication::activePopupWidget() || (marked && !popupClosed_);
}

QAction* MenuView::ActionOf(std::string_view name) const {
    for (const Row& row : rows_) {
        if (name == row.item->Name) return row.action;
    }
    return nullptr;
}

}  // namespace desktop
