// The list of the chosen appearance table.
#pragma once

#include <QtCore/QAbstractTableModel>
#include <QtWidgets/QTableView>
#include <functional>

#include "author/desk.h"

namespace bench_window {

class EntryModel final : public QAbstractTableModel {
  public:
    EntryModel(Desk& desk, QObject* parent) : QAbstractTableModel(parent), desk_(desk) {}

    // The desk's table is another or has changed.
    void Refresh();

    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : desk_.Rows(); }
    int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : kDeskColumns; }
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    Desk& desk_;
};

// Shows the model; what the desk has chosen is selected, and what is selected here is chosen.
class EntryList final : public QTableView {
  public:
    EntryList(Desk& desk, std::function<void()> chosen, QWidget* parent);
    void Refresh();

  private:
    void Take();

    Desk& desk_;
    EntryModel* model_;
    std::function<void()> chosen_;
    bool refreshing_ = false;
};

}  // namespace bench_window
