#include "views/qt/kinds/CellDelegate.h"

#include <QImage>
#include <QLineEdit>
#include <QPainter>
#include <algorithm>

#include "platform/Raster.h"
#include "views/qt/kinds/Painting.h"

namespace korvane::qt {
namespace {

constexpr int kRowPadding = 10;       // height of a row beyond its text
constexpr int kPictureEdge = 2;       // above and below a picture
constexpr int kSide = 8;              // between the edge of a cell and its text
constexpr double kLeastContrast = 2;  // below it a coloured text gets a plate behind it
constexpr int kPlate = 3;             // of the plate beyond the text, and its corners
constexpr int kCurrentBar = 3;        // width of the bar beside the current row

QColor groundOf(const QStyleOptionViewItem& option) {
  if (option.state & QStyle::State_Selected) return option.palette.color(QPalette::Highlight);
  if (option.state & QStyle::State_MouseOver) return option.palette.color(QPalette::Button);
  return option.palette.color(QPalette::Base);
}

QColor inkOf(const QStyleOptionViewItem& option) {
  const bool marked = option.state & QStyle::State_Selected;
  return option.palette.color(marked ? QPalette::HighlightedText : QPalette::Text);
}

// Lamps are sharp squares, however large they are drawn. Where the text begins.
int paintPicture(QPainter& painter, const Raster* picture, const QRect& room) {
  const int side = room.height() - 2 * kPictureEdge;
  const QRect square(room.left(), room.top() + kPictureEdge, side, side);
  if (picture != nullptr) {
    QImage image(picture->width(), picture->height(), QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x)
        image.setPixelColor(x, y, toQColor(picture->pixel(x, y)));
    }
    QRect target(QPoint(), image.size().scaled(square.size(), Qt::KeepAspectRatio));
    target.moveCenter(square.center());
    painter.drawImage(target, image);
  }
  return square.right() + kSide;
}

// A plate behind a text that would drown in the background.
void paintPlate(QPainter& painter, const QRect& behind, const QColor& ink) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(inkOn(ink));
  painter.drawRoundedRect(behind.adjusted(-kPlate, 1, kPlate, -1), kPlate, kPlate);
}

}  // namespace

QSize CellDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const QSize plain = QStyledItemDelegate::sizeHint(option, index);
  const int text = option.fontMetrics.horizontalAdvance(index.data().toString()) + 2 * kSide;
  return {std::max(plain.width(), text), option.fontMetrics.height() + kRowPadding};
}

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& given,
                         const QModelIndex& index) const {
  QStyleOptionViewItem option = given;
  if (!list_.gathered().empty())
    option.state.setFlag(QStyle::State_Selected, list_.isGathered(index.row()));
  const QColor ground = groundOf(option);
  const bool colored = list_.columns()[static_cast<std::size_t>(index.column())].colored;
  const QColor ink = colored ? toQColor(list_.row(index.row()).color) : inkOf(option);
  QRect room = option.rect.adjusted(kSide, 0, -kSide, 0);
  painter->save();
  painter->fillRect(option.rect, ground);
  if (index.column() == 0 && list_.hasPictures())
    room.setLeft(paintPicture(*painter, list_.picture(index.row()), room));
  const QString text =
      option.fontMetrics.elidedText(index.data().toString(), Qt::ElideRight, room.width());
  QFont font = option.font;
  font.setBold(colored);
  painter->setFont(font);
  if (!text.isEmpty() && contrast(ink, ground) < kLeastContrast)
    paintPlate(*painter, painter->fontMetrics().boundingRect(room, Qt::AlignVCenter, text), ink);
  painter->setPen(ink);
  painter->drawText(room, Qt::AlignVCenter, text);
  if (index.row() == list_.current() && option.rect.left() == 0)
    painter->fillRect(QRect(option.rect.topLeft(), QSize(kCurrentBar, option.rect.height())),
                      option.palette.color(QPalette::PlaceholderText));
  painter->restore();
}

// A list that changes under an open editor leaves alone what has been typed, and what is selected.
void CellDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  const auto& line = *static_cast<QLineEdit*>(editor);
  if (!line.isModified() && line.text() != index.data(Qt::EditRole).toString())
    QStyledItemDelegate::setEditorData(editor, index);
}

void CellDelegate::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex&) const {
  const std::string typed = static_cast<QLineEdit*>(editor)->text().toStdString();
  gate_.run([this, &typed] { list_.endEdit(typed); });
}

}  // namespace korvane::qt
