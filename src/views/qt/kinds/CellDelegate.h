#pragma once

#include <QStyledItemDelegate>

#include "platform/ListView.h"
#include "views/shared/machine/EventGate.h"

namespace korvane::qt {

/// Draws the cells of a list, each coloured one in its row's colour, and edits them in place.
class CellDelegate : public QStyledItemDelegate {
 public:
  CellDelegate(ListView& list, EventGate& gate, QObject* parent)
      : QStyledItemDelegate(parent), list_(list), gate_(gate) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override;

 private:
  ListView& list_;
  EventGate& gate_;
};

}  // namespace korvane::qt
