#include <QAbstractButton>
#include <algorithm>

#include "platform/Controls.h"
#include "views/qt/kinds/Binder.h"
#include "views/qt/kinds/Painting.h"

namespace korvane::qt {
namespace {

constexpr QSize kRoomOfColor{56, 32};
constexpr int kLeastWidth = 36;
constexpr int kRoomBeside = 64;  // beside a caption: the colour must be seen
constexpr int kCorner = 4;

class Swatch : public QAbstractButton {
 public:
  explicit Swatch(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  }

  void setColor(const QColor& color) {
    color_ = color;
    update();
  }
  QSize sizeHint() const override {
    const int words = text().isEmpty() ? 0 : fontMetrics().horizontalAdvance(text()) + kRoomBeside;
    return {std::max(kRoomOfColor.width(), words), kRoomOfColor.height()};
  }
  QSize minimumSizeHint() const override {
    return text().isEmpty() ? QSize(kLeastWidth, kRoomOfColor.height()) : sizeHint();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid),
                        hasFocus() ? 2 : 1));
    painter.setBrush(color_);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kCorner, kCorner);
    painter.setPen(inkOn(color_));
    painter.drawText(rect(), Qt::AlignCenter, text());
  }

 private:
  QColor color_;
};

}  // namespace

QWidget* makeWidget(ColorBox& box, const Seat& seat) {
  auto* widget = new Swatch(seat.parent);
  clickOnEnter(*widget);
  QObject::connect(widget, &QAbstractButton::clicked,
                   [&box, seat] { act(seat, box, [&box] { box.click(); }); });
  keepShown(box, *widget, [&box, widget] {
    widget->setText(text(box.look().caption));
    widget->updateGeometry();
    widget->setColor(toQColor(box.backColor()));
  });
  return widget;
}

}  // namespace korvane::qt
