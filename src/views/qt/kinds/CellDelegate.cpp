#include "views/qt/kinds/CellDelegate.h"

#include <QLineEdit>
#include <QPainter>

#include "views/qt/kinds/Painting.h"

namespace korvane {
namespace {

constexpr int kRowPadding = 10;       // height of a row beyond its text
constexpr double kLeastContrast = 2;  // below it a coloured text gets a plate behind it
constexpr int kCorner = 3;

}  // namespace

QSize CellDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const QSize plain = QStyledItemDelegate::sizeHint(option, index);
  return {plain.width(), option.fontMetrics.height() + kRowPadding};
}

bool CellDelegate::isColored(const QModelIndex& index) const {
  return list_.columns()[static_cast<std::size_t>(index.column())].colored;
}

void CellDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  if (isColored(index)) option->text.clear();
}

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  QStyledItemDelegate::paint(painter, option, index);
  if (isColored(index)) paintColored(*painter, option, index);
}

// The text in the row's own colour, on a plate if it would drown in the background.
void CellDelegate::paintColored(QPainter& painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
  const QColor color = toQColor(list_.row(index.row()).color);
  const QColor ground = option.palette.color(
      option.state & QStyle::State_Selected ? QPalette::Highlight : QPalette::Base);
  const QString bars = index.data().toString();
  QRect room = option.rect.adjusted(kCorner * 2, 0, -kCorner, 0);
  painter.save();
  painter.setFont(option.font);
  if (contrast(color, ground) < kLeastContrast) {
    QRect plate = option.fontMetrics.boundingRect(room, Qt::AlignVCenter, bars);
    painter.setPen(Qt::NoPen);
    painter.setBrush(inkOn(color));
    painter.drawRoundedRect(plate.adjusted(-kCorner, 1, kCorner, -1), kCorner, kCorner);
  }
  painter.setPen(color);
  painter.drawText(room, Qt::AlignVCenter, bars);
  painter.restore();
}

void CellDelegate::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex&) const {
  const std::string typed = static_cast<QLineEdit*>(editor)->text().toStdString();
  gate_.run([this, &typed] { list_.endEdit(typed); });
}

}  // namespace korvane
