#include "host/desktop/main_window.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QScreen>
#include <QtGui/QShortcut>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QVBoxLayout>
#include <algorithm>

#include "host/desktop/desktop.h"
#include "host/desktop/placing.h"
#include "state/main_form.h"
#include "state/state.h"
#include "toolkit/resources.h"

namespace desktop {

namespace {

QIcon WindowIcon() {
    const auto png = BuiltInFile("pictures/icon.png");
    return QIcon(QPixmap::fromImage(QImage::fromData(png.data(), static_cast<int>(png.size()))));
}

// Under Wayland they do not.
bool WindowsKnowTheirPlace() {
    return !QGuiApplication::platformName().startsWith("wayland");
}

}  // namespace

MainWindow::MainWindow(std::vector<InputEvent>& events, const Showing& showing)
    : QWidget(nullptr, kFixedWindow | Qt::Window),
      events_(events),
      bar_(new QMenuBar(this)),
      menus_(*bar_, events),
      view_(new PictureView(MainForm.Crt, events, this)),
      showing_(showing),
      fullScreenBar_(*bar_, *view_),
      edgeDrag_(*view_, [this](int times) { SetTimes(times); }),
      pause_(*view_, events) {
    setWindowTitle(QString::fromStdString(MainForm.Caption));
    setWindowIcon(WindowIcon());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(view_);
    view_->SetCalm(showing.calm);
    ApplyWindowed();
    AddKeys();
    view_->setFocus();
}

MainWindow::~MainWindow() {
    Remember();
}

void MainWindow::AddKeys() {
    for (const auto& keys :
         {QKeySequence(Qt::Key_F11), QKeySequence(Qt::ALT | Qt::Key_Return), QKeySequence(Qt::ALT | Qt::Key_Enter)}) {
        auto* shortcut = new QShortcut(keys, this);
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, this, [this] { SetFullScreen(!showing_.fullScreen); });
    }
    for (const Extra& extra : TheHost().extras) {
        if (extra.key.isEmpty()) continue;
        auto* shortcut = new QShortcut(extra.key, this);
        shortcut->setContext(Qt::ApplicationShortcut);
        connect(shortcut, &QShortcut::activated, this, extra.chosen);
    }
}

void MainWindow::ShowOnScreen() {
    if (showing_.place) move(*showing_.place);
    ApplyWindowed();  // the screen is known now
    ShowPlaced(*this, MainForm.Centred && !showing_.place);
    if (showing_.fullScreen) ApplyFullScreen();
    view_->setFocus();
}

// The window's frame, and some room so that it does not look wedged in; in units of the window.
int MainWindow::LargestTimesHere() const {
    constexpr QSize kFrame(8, 40);
    const QSize picture(game.ScreenW, game.ScreenH);
    const double ratio = devicePixelRatioF();
    const QSize units = kFrame + QSize(0, bar_->sizeHint().height());
    const QSize around = (QSizeF(units) * ratio).toSize() + view_->SizeAt(1) - picture;
    return LargestTimes(picture, around, (QSizeF(screen()->availableSize()) * ratio).toSize());
}

void MainWindow::SetTimes(int times) {
    showing_.times = times;
    showing_.fullScreen = false;
    ApplyWindowed();
    MoveOntoScreen();
    Remember();
}

void MainWindow::SetFullScreen(bool fullScreen) {
    if (showing_.fullScreen == fullScreen) return;
    showing_.fullScreen = fullScreen;
    if (fullScreen) {
        ApplyFullScreen();
    } else {
        ApplyWindowed();
    }
    Remember();
}

void MainWindow::SetFit(bool fit) {
    showing_.fit = fit;
    if (showing_.fullScreen) view_->FillScreen(fit);
    Remember();
}

void MainWindow::SetCalm(bool calm) {
    showing_.calm = calm;
    view_->SetCalm(calm);
    Remember();
}

void MainWindow::ApplyWindowed() {
    if (isFullScreen()) {
        fullScreenBar_.Leave();
        showNormal();
        if (showing_.place) move(*showing_.place);
    }
    ratio_ = devicePixelRatioF();
    const int largest = LargestTimesHere();
    view_->SetTimes(showing_.times == 0 ? largest : std::clamp(showing_.times, 1, largest));
    edgeDrag_.SetActive(true);
    layout()->setMenuBar(bar_);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    layout()->activate();
}

// A window of fixed size cannot fill the screen, so it is set free first.
void MainWindow::ApplyFullScreen() {
    layout()->setMenuBar(nullptr);
    layout()->setSizeConstraint(QLayout::SetNoConstraint);
    setMinimumSize(0, 0);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    edgeDrag_.SetActive(false);
    view_->unsetCursor();
    view_->FillScreen(showing_.fit);
    showFullScreen();
    fullScreenBar_.Enter();
}

// A window that has grown keeps its lower right corner on the screen.
void MainWindow::MoveOntoScreen() {
    if (!isVisible()) return;
    const QRect room = screen()->availableGeometry(), frame = frameGeometry();
    const QPoint beyond(std::max(0, frame.right() - room.right()), std::max(0, frame.bottom() - room.bottom()));
    if (!beyond.isNull())
        move(std::max(room.left(), pos().x() - beyond.x()), std::max(room.top(), pos().y() - beyond.y()));
}

void MainWindow::Tidy() {
    fullScreenBar_.Tidy(menus_.IsOpen());
    if (ratio_ != devicePixelRatioF() && !showing_.fullScreen) ApplyWindowed();
}

void MainWindow::Remember() const {
    if (isVisible() && showing_.kept) RememberShowing(showing_, *screen());
}

void MainWindow::moveEvent(QMoveEvent* event) {
    const bool placed = isVisible() && !showing_.fullScreen && !isFullScreen() && WindowsKnowTheirPlace();
    if (placed) showing_.place = pos();
    QWidget::moveEvent(event);
}

void MainWindow::AddTimes(QMenu& menu) {
    const int largest = LargestTimesHere();
    const int now = showing_.times == 0 ? largest : showing_.times;
    for (int times = 1; times <= largest; ++times) {
        QAction* action = menu.addAction(QString("%1x").arg(times), this, [this, times] { SetTimes(times); });
        action->setCheckable(true);
        action->setChecked(!showing_.fullScreen && times == now);
    }
}

void MainWindow::contextMenuEvent(QContextMenuEvent* event) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto addSwitch = [&](const char* text, bool on, void (MainWindow::*set)(bool)) {
        QAction* action = menu->addAction(text, this, [this, on, set] { (this->*set)(!on); });
        action->setCheckable(true);
        action->setChecked(on);
    };
    AddTimes(*menu);
    menu->addSeparator();
    addSwitch("Full screen\tF11", showing_.fullScreen, &MainWindow::SetFullScreen);
    addSwitch("Fill the whole height in full screen", showing_.fit, &MainWindow::SetFit);
    menu->addSeparator();
    menu->addAction("Pause\tP", this, [this] { pause_.Ask(); })->setEnabled(Pause::InGame());
    addSwitch("Calm: softer flashes", showing_.calm, &MainWindow::SetCalm);
    if (!TheHost().extras.empty()) menu->addSeparator();
    for (const Extra& extra : TheHost().extras) {
        if (!extra.caption.isEmpty()) menu->addAction(extra.caption, this, extra.chosen)->setShortcut(extra.key);
    }
    menu->popup(event->globalPos());
}

// The game ends the program itself, at its next yield.
void MainWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
    events_.push_back({InputEvent::Kind::closeWindow});
}

// The menu bar would have the keyboard when the window comes back, with no item marked.
void MainWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ActivationChange && !isActiveWindow()) view_->setFocus();
    QWidget::changeEvent(event);
}

}  // namespace desktop
