#include <QCheckBox>

#include "platform/Controls.h"
#include "views/qt/kinds/Binder.h"

namespace korvane::qt {

QWidget* makeWidget(CheckBox& box, const Seat& seat) {
  auto* widget = new QCheckBox(seat.parent);
  QObject::connect(widget, &QCheckBox::clicked,
                   [&box, seat] { act(seat, box, [&box] { box.click(); }); });
  keepShown(box, *widget, [&box, widget] {
    widget->setText(text(box.look().caption));
    widget->setChecked(box.checked());
  });
  return widget;
}

}  // namespace korvane::qt
