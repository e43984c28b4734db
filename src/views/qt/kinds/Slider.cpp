#include <QBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QSlider>
#include <QStyleOptionSlider>
#include <algorithm>

#include "platform/Controls.h"
#include "views/qt/kinds/Binder.h"

namespace korvane::qt {
namespace {

// A press beside the handle takes the handle there at once.
class JumpSlider : public QSlider {
 public:
  JumpSlider(const Slider& control, QWidget* parent)
      : QSlider(control.vertical() ? Qt::Vertical : Qt::Horizontal, parent), control_(control) {
    setRange(control.min(), control.max());
    setPageStep(control.pageStep());
  }

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect handle =
        style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
    if (event->button() == Qt::LeftButton && !handle.contains(event->pos())) {
      setValue(valueAt(event->pos(), handle));
    }
    QSlider::mousePressEvent(event);
  }

 private:
  int valueAt(const QPoint& at, const QRect& handle) const {
    const bool upright = orientation() == Qt::Vertical;
    const int half = (upright ? handle.height() : handle.width()) / 2;
    const int room = (upright ? height() : width()) - 2 * half;
    return control_.valueAt((upright ? at.y() : at.x()) - half, room);
  }

  const Slider& control_;
};

// The caption, the slider and its value as a number.
class CaptionedSlider : public QWidget {
 public:
  CaptionedSlider(const Slider& control, QWidget* parent)
      : QWidget(parent),
        caption(new QLabel(this)),
        slider(new JumpSlider(control, this)),
        number(new QLabel(this)) {
    const bool upright = control.vertical();
    auto* box = new QBoxLayout(upright ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight, this);
    box->setContentsMargins(0, 0, 0, 0);
    const Qt::Alignment centred = upright ? Qt::AlignHCenter : Qt::AlignVCenter;
    box->addWidget(caption, 0, centred);
    box->addWidget(slider, 1, upright ? Qt::AlignHCenter : Qt::Alignment());
    box->addWidget(number, 0, centred);
    caption->setObjectName("caption");
    number->setObjectName("number");
    number->setAlignment(upright ? Qt::AlignCenter : Qt::AlignRight | Qt::AlignVCenter);
    const QFontMetrics metrics = number->fontMetrics();
    const int width = std::max(metrics.horizontalAdvance(QString::number(control.min())),
                               metrics.horizontalAdvance(QString::number(control.max())));
    number->setMinimumWidth(width);
    if (control.min() < 0 && !upright) caption->setMinimumWidth(width);  // 0 is in the middle
    setFocusProxy(slider);
  }

  QLabel* caption;
  QSlider* slider;
  QLabel* number;
};

}  // namespace

QWidget* makeWidget(Slider& model, const Seat& seat) {
  auto* widget = new CaptionedSlider(model, seat.parent);
  QObject::connect(widget->slider, &QSlider::valueChanged, [&model, seat](int value) {
    act(seat, model, [&model, value] { model.setValue(value); });
  });
  keepShown(model, *widget, [&model, widget] {
    const QSignalBlocker quiet(widget->slider);
    widget->caption->setText(text(model.look().caption));
    widget->caption->setVisible(!model.look().caption.empty() || model.min() < 0);
    widget->slider->setValue(model.value());
    widget->number->setText(QString::number(model.value()));
  });
  return widget;
}

}  // namespace korvane::qt
