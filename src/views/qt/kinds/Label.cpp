#include <QLabel>
#include <QMouseEvent>

#include "platform/Controls.h"
#include "views/qt/kinds/Binder.h"

namespace korvane::qt {
namespace {

constexpr std::size_t kLongText = 80;  // characters; a longer text is broken into lines
constexpr int kWrapWidth = 460;

class ClickLabel : public QLabel {
 public:
  ClickLabel(Label& label, const Seat& seat) : QLabel(seat.parent), label_(label), seat_(seat) {}

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override {
    if (event->button() != Qt::LeftButton || !rect().contains(event->pos())) return;
    act(seat_, label_, [this] { label_.click(); });
  }
  void mousePressEvent(QMouseEvent*) override {}  // taken, so that the release comes here

 private:
  Label& label_;
  Seat seat_;
};

}  // namespace

QWidget* makeWidget(Label& label, const Seat& seat) {
  auto* widget = new ClickLabel(label, seat);
  widget->setTextFormat(Qt::PlainText);
  keepShown(label, *widget, [&label, widget] {
    // Once broken it stays so: what comes and goes would move all around it.
    if (label.look().caption.size() > kLongText && !widget->wordWrap()) {
      widget->setWordWrap(true);
      widget->setMinimumWidth(kWrapWidth);
    }
    widget->setText(text(label.look().caption));
  });
  return widget;
}

}  // namespace korvane::qt
