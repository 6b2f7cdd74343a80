#include "bench_window/entry_list.h"

#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtWidgets/QHeaderView>
#include <algorithm>

#include "bench_window/sprites.h"

namespace bench_window {

namespace {

constexpr int kRowHeight = 26;
constexpr int kIcon = 24;  // at most, pixels

QPixmap IconOf(const EnemyDataType& kind, int number) {
    const QImage sprite = SpriteOf(kind, number, 0);
    if (sprite.isNull()) return {};
    const bool large = sprite.width() > kIcon || sprite.height() > kIcon;
    QPixmap icon(kIcon, kIcon);
    icon.fill(QColor(16, 19, 31));
    QPainter painter(&icon);
    const QImage small = large ? sprite.scaled(kIcon, kIcon, Qt::KeepAspectRatio, Qt::SmoothTransformation) : sprite;
    painter.drawImage((kIcon - small.width()) / 2, (kIcon - small.height()) / 2, small);
    return icon;
}

}  // namespace

void EntryModel::Refresh() {
    beginResetModel();
    endResetModel();
}

QVariant EntryModel::data(const QModelIndex& index, int role) const {
    const auto column = static_cast<DeskColumn>(index.column());
    const int row = index.row();
    switch (role) {
        case Qt::DisplayRole:
            return QString::fromStdString(desk_.Cell(row, column));
        case Qt::ForegroundRole:
            return desk_.Reason(row).empty() ? QVariant() : QVariant(QColor(176, 0, 0));
        case Qt::BackgroundRole:
            return desk_.Reason(row).empty() ? QVariant() : QVariant(QColor(255, 228, 224));
        case Qt::ToolTipRole:
            return QString::fromStdString(desk_.Reason(row));
        case Qt::TextAlignmentRole:
            return int(Qt::AlignVCenter) | int(column == DeskColumn::name ? Qt::AlignLeft : Qt::AlignRight);
        case Qt::DecorationRole:
            if (column != DeskColumn::picture || desk_.KindIn(row) < 0) return {};
            return IconOf(desk_.Model().Working().EnemyData[desk_.KindIn(row)], desk_.KindIn(row));
        default:
            return {};
    }
}

QVariant EntryModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
    return QString(Desk::Title(static_cast<DeskColumn>(section)));
}

EntryList::EntryList(Desk& desk, std::function<void()> chosen, QWidget* parent)
    : QTableView(parent), desk_(desk), model_(new EntryModel(desk, this)), chosen_(std::move(chosen)) {
    constexpr int kWidths[kDeskColumns] = {40, 54, 30, 110, 72, 72, 60, 50};
    setModel(model_);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ContiguousSelection);
    setShowGrid(false);
    setAlternatingRowColors(true);
    setIconSize({kIcon, kIcon});
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(kRowHeight);
    horizontalHeader()->setHighlightSections(false);
    for (int c = 0; c < kDeskColumns; ++c) setColumnWidth(c, kWidths[c]);
    horizontalHeader()->setSectionResizeMode(static_cast<int>(DeskColumn::name), QHeaderView::Stretch);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { Take(); });
}

void EntryList::Take() {
    const QModelIndexList rows = selectionModel()->selectedRows();
    if (refreshing_ || rows.isEmpty()) return;
    const auto [first, last] = std::minmax_element(rows.begin(), rows.end());
    desk_.Choose(first->row(), last->row());
    chosen_();
}

void EntryList::Refresh() {
    refreshing_ = true;
    model_->Refresh();
    const EntryRange& range = desk_.Chosen();
    const int last = std::min(range.last, model_->rowCount({}) - 1);
    const QItemSelection rows(model_->index(std::min(range.first, last), 0), model_->index(last, kDeskColumns - 1));
    selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
    selectionModel()->setCurrentIndex(model_->index(range.first, 0), QItemSelectionModel::NoUpdate);
    scrollTo(model_->index(range.first, 0));
    refreshing_ = false;
}

}  // namespace bench_window
