#pragma once

#include "platform/Damage.h"
#include "platform/PictureBox.h"
#include "views/qt/kinds/Binder.h"

namespace korvane::qt {

/// Copies a picture box's pixels to the screen, each one as a whole number of the screen's own
/// pixels, and hands on the mouse in pixels of the box.
class PictureWidget : public QWidget {
 public:
  PictureWidget(PictureBox& box, const Seat& seat);

  /// Paints the whole box anew.
  void showAll();

  QSize sizeHint() const override { return hint_; }
  QSize minimumSizeHint() const override { return least_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  void fit();
  void note(int x1, int y1, int x2, int y2);
  void damage(int x1, int y1, int x2, int y2);
  void showDamage();
  void bringUpToDate();
  void paintPixels(QPainter& painter, const QRect& part);
  void paintOverlay(QPainter& painter) const;
  /// Screen pixels per pixel of the box, and the widget's own size in screen pixels.
  int factor() const;
  QSize screenSize() const;
  /// Where the box begins, in screen pixels from the widget's corner.
  QPoint origin() const;
  /// A point of the widget in pixels of the box, and back as a rectangle, there and in screen
  /// pixels.
  QPoint toBox(const QPointF& at) const;
  QRect toScreen(const QRect& pixels) const;
  QRectF toWidget(const QRect& pixels) const;

  PictureBox& box_;
  Seat seat_;
  Damage damage_;
  Raster shown_;          // the box's pixels in the order of the screen's bytes
  Damage stale_;          // where it is not yet
  bool squares_ = false;  // the box has squares that it lacks
  QSize hint_;
  QSize least_;
};

}  // namespace korvane::qt
