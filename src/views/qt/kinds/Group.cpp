#include <QGroupBox>

#include "platform/Controls.h"
#include "views/qt/kinds/Binder.h"

namespace korvane {

QWidget* bindGroup(Control& control, const Seat& seat) {
  auto* widget = new QGroupBox(seat.parent);
  keepShown(control, *widget,
            [&control, widget] { widget->setTitle(text(control.look().caption)); });
  return widget;
}

}  // namespace korvane
