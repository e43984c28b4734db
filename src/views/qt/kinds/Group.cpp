#include <QGroupBox>

#include "platform/Controls.h"
#include "views/qt/kinds/Binder.h"

namespace korvane::qt {

QWidget* makeWidget(Group& group, const Seat& seat) {
  auto* widget = new QGroupBox(seat.parent);
  keepShown(group, *widget, [&group, widget] { widget->setTitle(text(group.look().caption)); });
  return widget;
}

}  // namespace korvane::qt
