#include <QCheckBox>

#include "platform/Controls.h"
#include "views/qt/kinds/Binder.h"

namespace korvane {

QWidget* bindCheckBox(Control& control, const Seat& seat) {
  auto& box = static_cast<CheckBox&>(control);
  auto* widget = new QCheckBox(seat.parent);
  QObject::connect(widget, &QCheckBox::clicked, [&box, seat](bool checked) {
    act(seat, box, [&box, checked] { box.setValue(checked ? 1 : 0); });
  });
  keepShown(control, *widget, [&box, widget] {
    widget->setText(text(box.look().caption));
    widget->setChecked(box.checked());
  });
  return widget;
}

}  // namespace korvane
