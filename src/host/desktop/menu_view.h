// The menu bar on screen. It follows the menu model and never changes it: a click is only reported, and the check mark
// moves when the item's handler has moved it.
#pragma once

#include <QtWidgets/QMenuBar>
#include <vector>

#include "host/events.h"

struct MenuItem;

namespace desktop {

class MenuView {
  public:
    // Builds the whole bar into `bar`. Clicks go to `events`; both outlive the view.
    MenuView(QMenuBar& bar, std::vector<InputEvent>& events);

    // Captions, check marks and availability as the model has them now.
    void Sync();

    // A popup is open, or the keyboard has marked an item of the bar. A popup that closes takes the mark with it.
    bool IsOpen() const;

    // Called when no menu is open: from here on the keyboard may mark items again.
    void Leave() { popupClosed_ = false; }

    // The action that shows the item of that name, or null.
    QAction* ActionOf(std::string_view name) const;

  private:
    struct Row {
        const MenuItem* item;
        QAction* action;
    };
    QMenu* AddPopup(const MenuItem& item);
    void AddItem(QMenu& popup, const MenuItem& item);

    QMenuBar& bar_;
    std::vector<InputEvent>& events_;
    std::vector<Row> rows_;
    bool popupClosed_ = false;  // and no other has opened since
};

}  // namespace desktop
