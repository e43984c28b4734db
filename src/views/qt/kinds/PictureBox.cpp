#include "platform/PictureBox.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "views/qt/kinds/PaintRound.h"
#include "views/qt/kinds/Painting.h"
#include "views/qt/kinds/PictureWidget.h"

namespace korvane::qt {
namespace {

using Sizing = PictureBox::Sizing;

constexpr int kFixedEnlargement = 2;  // of a box that keeps its size, if there is room
constexpr int kLeastSide = 96;        // of a box that grows, in units of the layout

// A colour has red in its lowest byte, the toolkit's pixels have blue there. It draws the others as
// well (its RGBX8888), but for that it takes twice the time, and threads.
Color toPixel(Color color) {
  const auto bits = static_cast<QRgb>(color);
  return static_cast<Color>(0xFF000000U | (bits & 0xFF) << 16 | (bits & 0xFF00) |
                            (bits >> 16 & 0xFF));
}

// Copies a part of the raster to the same place of one of its size.
void copyPixels(Raster& shown, const Raster& raster, const Damage::Area& part) {
  for (int y = part.y1; y <= part.y2; ++y) {
    const Color* from = raster.line(y) + part.x1;
    std::transform(from, from + part.width(), shown.line(y) + part.x1, toPixel);
  }
}

}  // namespace

PictureWidget::PictureWidget(PictureBox& box, const Seat& seat)
    : QWidget(seat.parent), box_(box), seat_(seat), hint_(box.width(), box.height()) {
  const bool fixed = box.sizing() == Sizing::Fixed;
  least_ = fixed ? hint_
                 : QSize(std::min(hint_.width(), kLeastSide), std::min(hint_.height(), kLeastSide));
  if (fixed) hint_ *= kFixedEnlargement;
  const QSizePolicy::Policy policy = fixed ? QSizePolicy::Preferred : QSizePolicy::Expanding;
  setSizePolicy(policy, policy);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
  box.onPixels = [this](int x1, int y1, int x2, int y2) { note(x1, y1, x2, y2); };
  box.onSquares = [this](int x1, int y1, int x2, int y2) {
    squares_ = true;
    damage(x1, y1, x2, y2);
  };
  connect(this, &QObject::destroyed, [&box] {
    box.onPixels = nullptr;
    box.onSquares = nullptr;
  });
}

QSize PictureWidget::screenSize() const {
  const double scale = devicePixelRatioF();
  return {static_cast<int>(std::lround(width() * scale)),
          static_cast<int>(std::lround(height() * scale))};
}

int PictureWidget::factor() const {
  if (box_.sizing() != Sizing::Fixed || box_.width() == 0 || box_.height() == 0) return 1;
  const QSize screen = screenSize();
  return std::max(1, std::min(screen.width() / box_.width(), screen.height() / box_.height()));
}

QPoint PictureWidget::origin() const {
  const QSize spare = screenSize() - QSize(box_.width(), box_.height()) * factor();
  return {std::max(0, spare.width() / 2), std::max(0, spare.height() / 2)};
}

QPoint PictureWidget::toBox(const QPointF& at) const {
  const QPointF screen = at * devicePixelRatioF() - origin();
  return {static_cast<int>(std::floor(screen.x() / factor())),
          static_cast<int>(std::floor(screen.y() / factor()))};
}

QRect PictureWidget::toScreen(const QRect& pixels) const {
  return {origin() + pixels.topLeft() * factor(), pixels.size() * factor()};
}

QRectF PictureWidget::toWidget(const QRect& pixels) const {
  const double scale = devicePixelRatioF();
  const QRectF screen = toScreen(pixels);
  return {screen.topLeft() / scale, screen.size() / scale};
}

// Gives a box that grows the screen pixels that there are: all of them, or the largest square.
void PictureWidget::fit() {
  if (box_.sizing() == Sizing::Fixed) return;
  QSize size = screenSize();
  if (box_.sizing() == Sizing::Square) {
    const int side = std::min(size.width(), size.height());
    size = {side, side};
  }
  seat_.gate.run([this, size] { box_.resize(size.width(), size.height()); });
  update();
}

void PictureWidget::showAll() {
  stale_.add(0, 0, box_.width() - 1, box_.height() - 1);
  update();
}

void PictureWidget::note(int x1, int y1, int x2, int y2) {
  stale_.add(x1, y1, x2, y2);
  damage(x1, y1, x2, y2);
}

void PictureWidget::damage(int x1, int y1, int x2, int y2) {
  if (damage_.add(x1, y1, x2, y2)) PaintRound::common().join(*this, [this] { showDamage(); });
}

void PictureWidget::showDamage() {
  const Damage::Area area = damage_.take(box_.width(), box_.height());
  if (!area.empty())
    update(toWidget({area.x1, area.y1, area.width(), area.height()}).toAlignedRect());
}

void PictureWidget::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  const QRectF exposed = event->rect();
  const QRect all(0, 0, box_.width(), box_.height());
  if (!toWidget(all).contains(exposed)) painter.fillRect(exposed, palette().window());
  const QRect part =
      QRect(toBox(exposed.topLeft()), toBox(exposed.bottomRight())).adjusted(0, 0, 1, 1) & all;
  painter.scale(1 / devicePixelRatioF(), 1 / devicePixelRatioF());
  if (!part.isEmpty()) paintPixels(painter, part);
  paintOverlay(painter);
}

// Squares go straight to what is shown; all else is copied from the box.
void PictureWidget::bringUpToDate() {
  if (shown_.width() != box_.width() || shown_.height() != box_.height()) {
    shown_ = Raster(box_.width(), box_.height());
    stale_.add(0, 0, box_.width() - 1, box_.height() - 1);
  }
  if (std::exchange(squares_, false)) drawSquares(shown_, box_.squares(), toPixel);
  const Damage::Area stale = stale_.take(box_.width(), box_.height());
  if (!stale.empty()) copyPixels(shown_, box_.raster(), stale);
}

// The painter counts in screen pixels, here and below.
void PictureWidget::paintPixels(QPainter& painter, const QRect& part) {
  bringUpToDate();
  const QImage image(reinterpret_cast<const uchar*>(shown_.data()), shown_.width(), shown_.height(),
                     QImage::Format_RGB32);
  painter.drawImage(toScreen(part), image, part);
}

void PictureWidget::paintOverlay(QPainter& painter) const {
  const auto centre = [this](int x, int y) { return QRectF(toScreen(QRect(x, y, 1, 1))).center(); };
  for (const PictureBox::Line& line : box_.overlay()) {
    painter.setPen(QPen(toQColor(line.color), factor()));
    painter.drawLine(centre(line.x1, line.y1), centre(line.x2, line.y2));
  }
}

void PictureWidget::resizeEvent(QResizeEvent*) { fit(); }

void PictureWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const QPoint at = toBox(event->position());
  box_.press(at.x(), at.y(), seat_.gate);
}

void PictureWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const QPoint at = toBox(event->position());
  box_.twice(at.x(), at.y(), seat_.gate);
}

void PictureWidget::mouseMoveEvent(QMouseEvent* event) {
  const QPoint at = toBox(event->position());
  box_.move(at.x(), at.y(), event->buttons() & Qt::LeftButton, seat_.gate);
}

void PictureWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const QPoint at = toBox(event->position());
  box_.release(at.x(), at.y(), rect().contains(event->pos()), seat_.gate);
}

void PictureWidget::leaveEvent(QEvent*) { box_.leave(seat_.gate); }

QWidget* makeWidget(PictureBox& box, const Seat& seat) {
  auto* widget = new PictureWidget(box, seat);
  keepShown(box, *widget, [widget] { widget->showAll(); });
  return widget;
}

}  // namespace korvane::qt
