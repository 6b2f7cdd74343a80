#include "runs_window/runs_window.h"

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QShortcut>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTableWidget>
#include <algorithm>
#include <filesystem>
#include <utility>

#include "host/files.h"
#include "recording/frame_time.h"
#include "recording/link.h"
#include "runs_window/film_bar.h"
#include "stage/plays.h"
#include "state/options.h"

namespace runs_window {

namespace {

constexpr QSize kSize(1120, 620);
constexpr QSize kThumbnail(RunPicture::kWidth, RunPicture::kHeight);

enum Column { date, name, play, level, score, end, weapon, length, remark, columns };

// A cell that sorts by its number.
class NumberItem final : public QTableWidgetItem {
  public:
    NumberItem(const QString& text, int number) : QTableWidgetItem(text) {
        setData(Qt::UserRole, number);
        setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    bool operator<(const QTableWidgetItem& other) const override {
        return data(Qt::UserRole).toInt() < other.data(Qt::UserRole).toInt();
    }
};

QPixmap PixmapOf(const RunPicture& picture) {
    if (picture.pixels.empty()) return {};
    const QImage image(reinterpret_cast<const uchar*>(picture.pixels.data()), RunPicture::kWidth, RunPicture::kHeight,
                       RunPicture::kWidth * 2, QImage::Format_RGB16);
    return QPixmap::fromImage(image.copy());
}

QString PlayTitle(int number) {
    const Play* found = FindPlay(number);
    if (!found) return "?";
    return found->number == kNormalPlay ? "Game" : (MainFormType().*found->item).Caption;
}

QString LevelTitle(int level) {
    const auto* row = std::ranges::find(kDifficulties, level, &Difficulty::level);
    return row == std::end(kDifficulties) ? "?" : (MainFormType().*row->item).Caption;
}

QString WeaponOf(const Recording& game) {
    const int share = game.endFrames > 0 ? game.result.spread * 100 / game.endFrames : 0;
    return QString("%1 % spread").arg(share);
}

QString RemarkOn(const KeptRun& kept) {
    const Recording& game = kept.run.recording;
    if (!kept.problem.empty()) return "damaged: " + QString::fromStdString(kept.problem);
    QStringList remarks;
    if (kept.run.kept) remarks << "kept";
    if (game.parent) remarks << "taken over at " + QString::fromStdString(TimeOf(game.parent->frame));
    if (game.options[&MainFormType::Menu003]) remarks << "invincible";
    return remarks.join(", ");
}

}  // namespace

RunsWindow::RunsWindow(std::function<void(Deed, const std::string&)> chosen)
    : QWidget(nullptr, Qt::Window), chosen_(std::move(chosen)) {
    setWindowTitle("Tarnveil: runs");
    Build();
    resize(kSize);
}

QPushButton* RunsWindow::Button(const QString& caption, const QString& tip, std::function<void()> press) {
    auto* button = new QPushButton(caption, this);
    button->setToolTip(tip);
    connect(button, &QPushButton::clicked, this, std::move(press));
    return button;
}

void RunsWindow::Build() {
    table_ = new QTableWidget(0, columns, this);
    table_->setHorizontalHeaderLabels({"Date", "Name", "Play", "Level", "Score", "End", "Weapon", "Length", "Remark"});
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setIconSize(kThumbnail);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setDefaultSectionSize(kThumbnail.height() + 4);
    table_->horizontalHeader()->setStretchLastSection(true);
    table_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);  // as listed: the newest first
    table_->setColumnWidth(date, 190);
    table_->setColumnWidth(name, 140);
    connect(table_, &QTableWidget::itemSelectionChanged, this, [this] { Refresh(); });
    connect(table_, &QTableWidget::cellDoubleClicked, this, [this] { Do(Deed::play); });
    auto* row = new QHBoxLayout;
    const auto add = [&](std::vector<QPushButton*>* list, QPushButton* button) {
        row->addWidget(button);
        if (list) list->push_back(button);
        return button;
    };
    add(&forWhole_, Button("Play", "Watch it, from any moment", [this] { Do(Deed::play); }));
    add(&forWhole_, Button("Take over", "Play it on yourself from a moment", [this] { Do(Deed::takeOver); }));
    add(&forWhole_, Button("Race", "Play the same game against its ghost", [this] { Do(Deed::race); }));
    add(&forWhole_, Button("Copy link", "The whole game as a link's end", [this] { Share(); }));
    add(&forAny_, Button("Save as...", "A copy of the file", [this] { SaveAs(); }));
    add(&forWhole_, Button("Rename...", "What it is called", [this] { Rename(); }));
    keep_ = add(&forWhole_, Button("Keep", "Never thrown away by itself", [this] { Keep(); }));
    add(&forAny_, Button("Delete", "Until the program ends it can be brought back", [this] { Delete(); }));
    undo_ = add(nullptr, Button("Undo", "Brings back what was deleted last", [this] { Undo(); }));
    message_ = new QLabel(this);
    auto* all = new QVBoxLayout(this);
    all->addWidget(table_);
    all->addLayout(row);
    all->addWidget(message_);
    const auto key = [this](const QKeySequence& keys, void (RunsWindow::*deed)()) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, [this, deed] { (this->*deed)(); });
    };
    key(QKeySequence(Qt::Key_Delete), &RunsWindow::Delete);
    key(QKeySequence::Undo, &RunsWindow::Undo);
    connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), &QShortcut::activated, this, [this] { hide(); });
    connect(new QShortcut(QKeySequence(Qt::Key_Return), this), &QShortcut::activated, this, [this] { Do(Deed::play); });
}

void RunsWindow::Come() {
    Load();
    show();
    raise();
    activateWindow();
}

void RunsWindow::Load() {
    const int chosen = std::max(0, table_->currentRow());
    runs_ = ListRuns();
    table_->setSortingEnabled(false);
    table_->setRowCount(static_cast<int>(runs_.size()));
    for (int row = 0; row < table_->rowCount(); ++row) Fill(row, runs_[static_cast<std::size_t>(row)]);
    table_->setSortingEnabled(true);
    table_->selectRow(std::min(chosen, table_->rowCount() - 1));
    message_->setText(runs_.empty() ? "Every game that you play comes here by itself." : "");
    Refresh();
}

void RunsWindow::Fill(int row, const KeptRun& kept) {
    const Recording& game = kept.run.recording;
    const bool whole = kept.problem.empty();
    const auto put = [&](Column column, QTableWidgetItem* item) { table_->setItem(row, column, item); };
    const std::string file = std::filesystem::path(kept.path).stem().string();
    auto* first = new QTableWidgetItem(QString::fromStdString(whole ? kept.run.date : file));
    first->setIcon(PixmapOf(kept.run.picture));
    first->setData(Qt::UserRole, static_cast<int>(row));
    put(date, first);
    put(name, new QTableWidgetItem(QString::fromStdString(kept.run.name)));
    put(remark, new QTableWidgetItem(RemarkOn(kept)));
    put(play, new QTableWidgetItem(whole ? PlayTitle(game.play) : ""));
    put(level, new QTableWidgetItem(whole ? LevelTitle(game.level) : ""));
    put(score, new NumberItem(whole ? QString::number(game.endScore) : "", game.endScore));
    put(end, new QTableWidgetItem(whole ? OutcomeName(game.result.how) : ""));
    put(weapon, new NumberItem(whole ? WeaponOf(game) : "", game.result.spread));
    put(length, new NumberItem(whole ? QString::fromStdString(TimeOf(game.endFrames)) : "", game.endFrames));
}

const KeptRun* RunsWindow::Chosen() const {
    const QTableWidgetItem* item = table_->item(table_->currentRow(), date);
    return item ? &runs_[static_cast<std::size_t>(item->data(Qt::UserRole).toInt())] : nullptr;
}

void RunsWindow::Refresh() {
    const KeptRun* run = Chosen();
    for (QPushButton* button : forAny_) button->setEnabled(run);
    for (QPushButton* button : forWhole_) button->setEnabled(run && run->problem.empty());
    keep_->setText(run && run->run.kept ? "Do not keep" : "Keep");
    undo_->setEnabled(!deleted_.empty());
}

void RunsWindow::Say(const std::string& problem, const QString& done) {
    message_->setText(problem.empty() ? done : QString::fromStdString(problem));
}

void RunsWindow::Do(Deed deed) {
    const KeptRun* run = Chosen();
    if (!run || !run->problem.empty()) return;
    hide();
    chosen_(deed, run->path);
}

void RunsWindow::Share() {
    const KeptRun* run = Chosen();
    if (!run) return;
    Recording recording;
    std::string problem = ReadRecording(run->path, recording);
    const std::string link = problem.empty() ? LinkOf(recording) : "";
    if (problem.empty() && link.empty()) problem = "The game is too long for a link; save it as a file.";
    if (problem.empty()) QGuiApplication::clipboard()->setText(QString::fromStdString("#run=" + link));
    Say(problem, "Copied: to be put behind the address of the game's page, or after tarnveil --replay.");
}

void RunsWindow::SaveAs() {
    const KeptRun* run = Chosen();
    if (!run) return;
    const QString path = QFileDialog::getSaveFileName(
        this, "Save the run", QString::fromStdString(std::filesystem::path(run->path).filename().string()),
        QString("Tarnveil runs (*%1)").arg(kRunEnding));
    if (path.isEmpty()) return;
    const FileBytes file = ReadWholeFile(run->path);
    Say(file.error == FileError::none ? WriteWholeFile(path.toStdString(), file.bytes) : file.reason, "Saved.");
}

void RunsWindow::Rename() {
    const KeptRun* run = Chosen();
    if (!run) return;
    bool taken = false;
    const QString wanted = QInputDialog::getText(this, "Rename", "The run is called", QLineEdit::Normal,
                                                 QString::fromStdString(run->run.name), &taken);
    if (!taken) return;
    const std::string problem = ChangeRun(run->path, wanted.toStdString(), run->run.kept);
    Load();
    Say(problem, "");
}

void RunsWindow::Keep() {
    const KeptRun* run = Chosen();
    if (!run) return;
    const std::string problem = ChangeRun(run->path, run->run.name, !run->run.kept);
    Load();
    Say(problem, "");
}

void RunsWindow::Delete() {
    const KeptRun* run = Chosen();
    if (!run) return;
    const std::string path = run->path, problem = PutAside(path);
    if (problem.empty()) deleted_.push_back(path);
    Load();
    Say(problem, "Deleted. Undo brings it back.");
}

void RunsWindow::Undo() {
    if (deleted_.empty()) return;
    const std::string problem = BringBack(deleted_.back());
    deleted_.pop_back();
    Load();
    Say(problem, "It is back.");
}

}  // namespace runs_window
