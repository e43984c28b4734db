#include <QBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QSlider>
#include <QStyleOptionSlider>
#include <algorithm>

#include "platform/Controls.h"
#include "views/qt/kinds/Binder.h"

namespace korvane {
namespace {

constexpr int kPagesOfRange = 10;

// A press beside the handle takes the handle there at once.
class JumpSlider : public QSlider {
 public:
  using QSlider::QSlider;

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
    return QStyle::sliderValueFromPosition(minimum(), maximum(), (upright ? at.y() : at.x()) - half,
                                           std::max(1, room), upright);
  }
};

// The caption, the slider and its value as a number.
class CaptionedSlider : public QWidget {
 public:
  CaptionedSlider(const Slider& control, QWidget* parent)
      : QWidget(parent),
        caption(new QLabel(this)),
        slider(new JumpSlider(control.vertical() ? Qt::Vertical : Qt::Horizontal, this)),
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
    slider->setRange(control.min(), control.max());
    slider->setPageStep(std::max(1, (control.max() - control.min()) / kPagesOfRange));
    setFocusProxy(slider);
  }

  QLabel* caption;
  QSlider* slider;
  QLabel* number;
};

}  // namespace

QWidget* bindSlider(Control& control, const Seat& seat) {
  auto& model = static_cast<Slider&>(control);
  auto* widget = new CaptionedSlider(model, seat.parent);
  QObject::connect(widget->slider, &QSlider::valueChanged, [&model, seat](int value) {
    act(seat, model, [&model, value] { model.setValue(value); });
  });
  keepShown(control, *widget, [&model, widget] {
    const QSignalBlocker quiet(widget->slider);
    widget->caption->setText(text(model.look().caption));
    widget->caption->setVisible(!model.look().caption.empty() || model.min() < 0);
    widget->slider->setValue(model.value());
    widget->number->setText(QString::number(model.value()));
  });
  return widget;
}

}  // namespace korvane
