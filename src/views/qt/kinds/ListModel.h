#pragma once

#include <QAbstractTableModel>

#include "platform/ListView.h"

namespace korvane::qt {

/// The rows of a list control as the toolkit's views read them.
class ListModel : public QAbstractTableModel {
 public:
  ListModel(const ListView& list, QObject* parent) : QAbstractTableModel(parent), list_(list) {}

  /// Tells the views that the list may have changed.
  void refresh();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  const ListView& list_;
  int rows_ = 0;  // as the views know them
  int columns_ = 0;
};

}  // namespace korvane::qt
