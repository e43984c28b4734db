#include "views/qt/kinds/Painting.h"

#include <QKeyEvent>
#include <QPainterPath>

namespace korvane::qt {
namespace {

constexpr double kLineShare = 1.0 / 12;  // width of an icon's lines, as a share of its square

Color fromQColor(const QColor& color) { return rgb(color.red(), color.green(), color.blue()); }

QPainterPath pathOf(const IconPart& part, const QRectF& square) {
  QPolygonF polygon;
  for (const auto& [x, y] : part.points)
    polygon << QPointF(square.x() + x * square.width(), square.y() + y * square.height());
  QPainterPath path;
  path.addPolygon(polygon);
  if (part.closed) path.closeSubpath();
  return path;
}

class EnterClicks : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    static_cast<QAbstractButton*>(watched)->click();
    return true;
  }
};

}  // namespace

QColor toQColor(Color color) {
  const Rgb parts = colorParts(color);
  return {parts[0], parts[1], parts[2]};
}

double contrast(const QColor& one, const QColor& other) {
  return korvane::contrast(fromQColor(one), fromQColor(other));
}

QColor inkOn(const QColor& background) { return toQColor(korvane::inkOn(fromQColor(background))); }

void drawIcon(QPainter& painter, Icon icon, const QRectF& square, const QColor& ink) {
  painter.setRenderHint(QPainter::Antialiasing);
  for (const IconPart& part : iconParts(icon)) {
    const QPainterPath path = pathOf(part, square);
    if (part.filled) {
      painter.fillPath(path, ink);
    } else {
      painter.strokePath(
          path, QPen(ink, square.width() * kLineShare, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
  }
}

void clickOnEnter(QAbstractButton& button) { button.installEventFilter(new EnterClicks(&button)); }

}  // namespace korvane::qt
