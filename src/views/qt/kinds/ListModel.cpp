#include "views/qt/kinds/ListModel.h"

namespace korvane::qt {

void ListModel::refresh() {
  const int columns = static_cast<int>(list_.columns().size());
  if (rows_ != list_.count() || columns_ != columns) {
    beginResetModel();
    rows_ = list_.count();
    columns_ = columns;
    endResetModel();
  } else if (rows_ > 0 && columns_ > 0) {
    Q_EMIT dataChanged(index(0, 0), index(rows_ - 1, columns_ - 1));
  }
}

int ListModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int ListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columns_;
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= list_.count()) return {};
  if (role != Qt::DisplayRole && role != Qt::EditRole) return {};
  return QString::fromStdString(role == Qt::EditRole ? list_.textToEdit(index.row(), index.column())
                                                     : list_.cell(index.row(), index.column()));
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return QString::fromStdString(list_.columns()[static_cast<std::size_t>(section)].title);
}

Qt::ItemFlags ListModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags plain = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  const bool editable = list_.columns()[static_cast<std::size_t>(index.column())].editable;
  return editable ? plain | Qt::ItemIsEditable : plain;
}

}  // namespace korvane::qt
