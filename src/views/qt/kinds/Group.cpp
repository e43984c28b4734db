#include <QGroupBox>

#include "platform/Controls.h"
#include "views/qt/kinds/Binder.h"

namespace korvane::qt {

// A group without a title is no more than the place of what is inside.
QWidget* makeWidget(Group& group, const Seat& seat) {
  if (group.look().caption.empty()) {
    auto* place = new QWidget(seat.parent);
    keepShown(group, *place, [] {});
    return place;
  }
  auto* widget = new QGroupBox(seat.parent);
  keepShown(group, *widget, [&group, widget] { widget->setTitle(text(group.look().caption)); });
  return widget;
}

}  // namespace korvane::qt
