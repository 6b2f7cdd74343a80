#include "host/desktop/main_window.h"

#include <QtGui/QCloseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QVBoxLayout>

#include "host/desktop/placing.h"
#include "platform/resources.h"
#include "shell/main_form.h"

namespace desktop {

namespace {

QIcon WindowIcon() {
    const auto png = BuiltInFile("pictures/icon.png");
    return QIcon(QPixmap::fromImage(QImage::fromData(png.data(), static_cast<int>(png.size()))));
}

}  // namespace

MainWindow::MainWindow(std::vector<InputEvent>& events)
    : QWidget(nullptr, kFixedWindow | Qt::Window),
      events_(events),
      bar_(new QMenuBar(this)),
      menus_(*bar_, events),
      view_(new PictureView(MainForm.Crt, events, this)) {
    setWindowTitle(QString::fromStdString(MainForm.Caption));
    setWindowIcon(WindowIcon());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->setMenuBar(bar_);
    layout->addWidget(view_);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    view_->setFocus();
}

void MainWindow::ShowOnScreen() {
    ShowPlaced(*this, MainForm.Centred);
    view_->setFocus();
}

// The game ends the program itself, at its next yield.
void MainWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
    events_.push_back({InputEvent::Kind::closeWindow});
}

}  // namespace desktop
