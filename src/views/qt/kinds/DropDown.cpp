#include "views/qt/kinds/DropDown.h"

#include <QWheelEvent>

#include "views/qt/kinds/Painting.h"

namespace korvane::qt {
namespace {

constexpr int kArrowSide = 14;
constexpr int kArrowMargin = 8;

}  // namespace

void DropDown::paintEvent(QPaintEvent* event) {
  QComboBox::paintEvent(event);
  QPainter painter(this);
  const QRectF square(width() - kArrowSide - kArrowMargin, (height() - kArrowSide) / 2.0,
                      kArrowSide, kArrowSide);
  const QPalette::ColorGroup group = isEnabled() ? QPalette::Normal : QPalette::Disabled;
  drawIcon(painter, Icon::Down, square, palette().color(group, QPalette::ButtonText));
}

void DropDown::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace korvane::qt
