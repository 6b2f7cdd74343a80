#include "bench_window/bench_window.h"

#include <QtGui/QShortcut>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QVBoxLayout>
#include <memory>
#include <utility>

#include "author/journal.h"
#include "host/window.h"
#include "stage/plays.h"

namespace bench_window {

namespace {

constexpr int kPulse = 100;      // ms
constexpr int kFilesEvery = 10;  // pulses
constexpr QSize kSize(1160, 800);
constexpr float kReach = 9;  // pixels of the screen around what is gripped
const char* const kTitle = "作業台 / Bench";

QLabel* Line(QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(false);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    return label;
}

}  // namespace

BenchWindow::BenchWindow(desktop::Host& host) : QWidget(nullptr, Qt::Window), host_(host) {
    setWindowTitle(kTitle);
    AddKeys(host);
    WatchTryOuts({[this](int table) { TableLoaded(table); }, [this] { Come(); }});
    pulse_.setInterval(kPulse);
    connect(&pulse_, &QTimer::timeout, this, [this] { Pulse(); });
    const auto files = std::make_unique<Bench>();
    const bool unsaved = files->Open().empty() && !ReadJournal(files->Working()).changes.empty();
    reminder_.setSingleShot(true);
    connect(&reminder_, &QTimer::timeout, this, [this] { Come(); });
    if (unsaved) reminder_.start();
}

// False when the tables cannot be read.
bool BenchWindow::Wake() {
    if (awake_) return true;
    const std::string problem = desk_.Open(played_);
    if (!problem.empty()) {
        MsgBox("The bench stays closed: " + problem, kTitle);
        return false;
    }
    awake_ = true;
    Build();
    pulse_.start();
    return true;
}

void BenchWindow::TableLoaded(int table) {
    played_ = table;
    if (awake_) desk_.TableLoaded(table);
}

QPushButton* BenchWindow::Button(const QString& caption, const QString& tip, std::function<void()> press) {
    auto* button = new QPushButton(caption, this);
    button->setToolTip(tip);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QPushButton::clicked, this, [this, press = std::move(press)] {
        press();
        Refresh();
    });
    return button;
}

void BenchWindow::AddButtons(QBoxLayout& row, DeskPlace place) {
    for (const DeskButton& button : desk_.Buttons()) {
        if (button.place != place) continue;
        const QString key = QString::fromStdString(button.key), caption = QString::fromStdString(button.caption);
        const QString shown = key.startsWith('F') ? caption + " " + key : caption;
        auto* widget = Button(shown, QString::fromStdString(button.tip) + (key.isEmpty() ? "" : "  (" + key + ")"),
                              [this, &button] { desk_.Press(button); });
        widget->setObjectName(caption);
        if (!key.startsWith('F')) widget->setShortcut(QKeySequence(key));
        row.addWidget(widget);
    }
}

QLayout* BenchWindow::Fields(DeskPlace place) {
    constexpr int kColumns = 5;
    auto* grid = new QGridLayout;
    int n = 0;
    for (const DeskField& field : desk_.Fields()) {
        if (field.place != place) continue;
        auto* label = new QLabel(QString::fromStdString(field.name), this);
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        auto* edit = new QLineEdit(this);
        edit->setObjectName(QString::fromStdString(field.name));
        edit->setMinimumWidth(52);
        for (QWidget* widget : {static_cast<QWidget*>(label), static_cast<QWidget*>(edit)})
            widget->setToolTip(QString::fromStdString(field.tip));
        connect(edit, &QLineEdit::editingFinished, this, [this, &field, edit] {
            if (refreshing_ || !edit->isModified()) return;
            edit->setModified(false);
            desk_.Store(field, edit->text().toStdString());
            Refresh();
        });
        grid->addWidget(label, n / kColumns, 2 * (n % kColumns));
        grid->addWidget(edit, n / kColumns, 2 * (n % kColumns) + 1);
        edits_.push_back({&field, edit});
        ++n;
    }
    return grid;
}

void BenchWindow::AddGroup(QBoxLayout& column, const QString& title, QLayout* content) {
    auto* group = new QGroupBox(title, this);
    group->setLayout(content);
    content->setContentsMargins(8, 4, 8, 8);
    column.addWidget(group);
}

QWidget* BenchWindow::LeftSide() {
    auto* side = new QWidget(this);
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    auto* top = new QHBoxLayout;
    table_ = new QComboBox(side);
    for (const Play& play : kPlays) table_->addItem(play.name);
    connect(table_, &QComboBox::activated, this, [this](int table) {
        desk_.ChooseTable(table);
        Refresh();
    });
    auto* search = new QLineEdit(side);
    search->setPlaceholderText("search, Enter: next");
    connect(search, &QLineEdit::returnPressed, this, [this, search] {
        desk_.Search(search->text().toStdString());
        Refresh();
    });
    top->addWidget(table_);
    top->addWidget(search, 1);
    AddButtons(*top, DeskPlace::history);
    column->addLayout(top);
    list_ = new EntryList(
        desk_, [this] { Refresh(); }, side);
    column->addWidget(list_, 1);
    finding_ = Line(side);
    QPalette red = finding_->palette();
    red.setColor(QPalette::WindowText, QColor(176, 0, 0));
    finding_->setPalette(red);
    column->addWidget(finding_);
    auto* entry = new QHBoxLayout;
    entry->addLayout(Fields(DeskPlace::entry), 1);
    AddButtons(*entry, DeskPlace::entry);
    AddGroup(*column, "Entries", entry);
    auto* range = new QVBoxLayout;
    auto* buttons = new QHBoxLayout;
    AddButtons(*buttons, DeskPlace::range);
    range->addLayout(Fields(DeskPlace::range));
    range->addLayout(buttons);
    AddGroup(*column, "All that are chosen", range);
    AddGroup(*column, "Play from here", PlayRows());
    return side;
}

QLayout* BenchWindow::PlayRows() {
    auto* rows = new QVBoxLayout;
    rows->addLayout(Fields(DeskPlace::start));
    auto* play = new QHBoxLayout;
    play->addWidget(
        Button("Play F5", "starts the stage at the chosen entry; Esc comes back", [this] { PlayFromHere(); }));
    play->addWidget(Button("Last 10 s again F6", "with the tables as they are now", [this] { PlayLastAgain(); }));
    play->addWidget(Button("Stand still F10", "the game stands still, or goes on", [this] { StandStill(); }));
    play->addWidget(Button("Frame .", "one frame more", [this] { host_.frameHold.Step(); }));
    rows->addLayout(play);
    return rows;
}

QWidget* BenchWindow::FieldTab() {
    auto* tab = new QWidget(this);
    auto* column = new QVBoxLayout(tab);
    caption_ = Line(tab);
    column->addWidget(caption_);
    field_ = new DrawingView([this] { return desk_.Picture(); },
                             [this](auto what, DrawnPoint at, bool fine) { UseMouse(what, at, fine); }, tab);
    column->addWidget(field_, 1);
    auto* time = new QHBoxLayout;
    time_ = new QSlider(Qt::Horizontal, tab);
    timeText_ = new QLabel(tab);
    timeText_->setMinimumWidth(90);
    connect(time_, &QSlider::valueChanged, this, [this](int frame) {
        if (refreshing_) return;
        desk_.ChooseTime(frame);
        Refresh();
    });
    time->addWidget(new QLabel("Time", tab));
    time->addWidget(time_, 1);
    time->addWidget(timeText_);
    column->addLayout(time);
    auto* steps = new QHBoxLayout;
    steps->addLayout(Fields(DeskPlace::step), 1);
    AddButtons(*steps, DeskPlace::step);
    AddGroup(*column, "Step of the pattern", steps);
    return tab;
}

QWidget* BenchWindow::KindTab() {
    auto* tab = new QWidget(this);
    auto* column = new QVBoxLayout(tab);
    kinds_ = new QComboBox(tab);
    for (int k = 0; k < kEnemyKinds; ++k) kinds_->addItem(QString("kind %1").arg(k));
    connect(kinds_, &QComboBox::activated, this, [this](int kind) {
        desk_.ChooseKind(kind);
        Refresh();
    });
    column->addWidget(kinds_);
    kind_ = new KindView(
        desk_, [this] { Refresh(); }, tab);
    column->addWidget(kind_, 1);
    column->addLayout(Fields(DeskPlace::kind));
    return tab;
}

void BenchWindow::Build() {
    auto* column = new QVBoxLayout(this);
    offer_ = new QWidget(this);
    auto* offer = new QHBoxLayout(offer_);
    offer->setContentsMargins(0, 0, 0, 0);
    offerText_ = new QLabel(offer_);
    accept_ = Button("", "", [this] { desk_.Answer(true); });
    refuse_ = Button("", "", [this] { desk_.Answer(false); });
    offer->addWidget(offerText_, 1);
    offer->addWidget(accept_);
    offer->addWidget(refuse_);
    column->addWidget(offer_);
    auto* sides = new QSplitter(this);
    auto* tabs = new QTabWidget(sides);
    sides->addWidget(LeftSide());
    tabs->addTab(FieldTab(), "Field");
    tabs->addTab(KindTab(), "Kind");
    history_ = new QListWidget(tabs);
    connect(history_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
        desk_.GoTo(static_cast<std::size_t>(history_->row(item)));
        Refresh();
    });
    tabs->addTab(history_, "History");
    sides->addWidget(tabs);
    sides->setChildrenCollapsible(false);
    column->addWidget(sides, 1);
    message_ = Line(this);
    column->addWidget(message_);
    resize(kSize);
}

void BenchWindow::AddKeys(desktop::Host& host) {
    const auto add = [&](const char* caption, const char* key, std::function<void()> chosen) {
        host.extras.push_back({caption, QKeySequence(key), std::move(chosen)});
    };
    add(kTitle, "F9", [this] { ComeOrGo(); });
    add("", "F5", [this] { PlayFromHere(); });
    add("", "F6", [this] { PlayLastAgain(); });
    add("", "F10", [this] { StandStill(); });
    add("", ".", [this] { host_.frameHold.Step(); });
    for (const auto& [key, caption] : {std::pair{"F7", "Back"}, {"F8", "Forward"}})
        add("", key, [this, name = caption] { PressNamed(name); });
    for (const auto& [key, caption] : {std::pair{"Ctrl+Z", "Back"}, {"Ctrl+Shift+Z", "Forward"}}) {
        connect(new QShortcut(QKeySequence(key), this), &QShortcut::activated, this,
                [this, name = caption] { PressNamed(name); });
    }
}

void BenchWindow::PressNamed(const char* caption) {
    for (const DeskButton& button : desk_.Buttons()) {
        if (awake_ && button.caption == caption) desk_.Press(button);
    }
    Refresh();
}

void BenchWindow::StandStill() {
    host_.frameHold.SetStanding(!host_.frameHold.IsStanding());
}

void BenchWindow::PlayLastAgain() {
    if (!PlayAgain()) return;
    host_.frameHold.SetStanding(false);
    host_.window->activateWindow();
}

void BenchWindow::PlayFromHere() {
    if (!Wake()) return;
    StartTryOut(desk_.Start());
    host_.frameHold.SetStanding(false);
    host_.window->activateWindow();
    host_.window->View().setFocus();
}

void BenchWindow::ComeOrGo() {
    if (!isActiveWindow()) return Come();
    hide();
    host_.window->activateWindow();
}

void BenchWindow::Come() {
    if (!Wake()) return;
    show();
    raise();
    activateWindow();
    Refresh();
}

void BenchWindow::UseMouse(DrawingView::Mouse what, DrawnPoint at, bool fine) {
    if (what == DrawingView::Mouse::press) desk_.Grip(at, kReach / field_->Scale());
    if (what == DrawingView::Mouse::move) desk_.DragTo(at, fine);
    if (what == DrawingView::Mouse::release) desk_.LetGo();
    Refresh();
}

void BenchWindow::Pulse() {
    desk_.Observe();
    if (pulses_++ % kFilesEvery == 0) desk_.LookAtFiles();
    const bool offered = !desk_.Offer().text.empty();
    if (isVisible() && (shown_ != desk_.Model().Changes() || offered != !offer_->isHidden())) Refresh();
}

void BenchWindow::RefreshHistory() {
    const auto& history = desk_.Model().History();
    history_->clear();
    history_->addItem("as it was at the start");
    for (const BenchAction& action : history) history_->addItem(QString::fromStdString(action.label));
    for (int i = static_cast<int>(desk_.Model().Done()) + 1; i < history_->count(); ++i)
        history_->item(i)->setForeground(Qt::gray);
    history_->setCurrentRow(static_cast<int>(desk_.Model().Done()));
}

void BenchWindow::Refresh() {
    if (refreshing_ || !list_) return;
    refreshing_ = true;
    const bool changed = std::exchange(shown_, desk_.Model().Changes()) != desk_.Model().Changes();
    table_->setCurrentIndex(desk_.Table());
    kinds_->setCurrentIndex(desk_.Kind());
    list_->Refresh();
    if (changed || history_->count() == 0) RefreshHistory();
    for (const auto& [field, edit] : edits_) {
        const QString text = QString::fromStdString(field->text());
        if (edit->text() != text && !edit->isModified()) edit->setText(text);
    }
    time_->setRange(0, desk_.LastTime());
    time_->setValue(desk_.Time());
    timeText_->setText(QString("frame %1").arg(desk_.Time()));
    caption_->setText(QString::fromStdString(desk_.Caption()));
    finding_->setText(QString::fromStdString(desk_.Finding()));
    message_->setText(QString::fromStdString(desk_.Message()));
    const DeskOffer offer = desk_.Offer();
    offer_->setVisible(!offer.text.empty());
    offerText_->setText(QString::fromStdString(offer.text));
    accept_->setText(QString::fromStdString(offer.accept));
    refuse_->setText(QString::fromStdString(offer.refuse));
    setWindowTitle(QString(kTitle) + (desk_.Model().Unsaved().empty() ? "" : " *"));
    desk_.PlaceEditors();
    field_->update();
    kind_->update();
    refreshing_ = false;
}

}  // namespace bench_window
