#include <QPushButton>

#include "platform/Controls.h"
#include "views/qt/kinds/Binder.h"
#include "views/qt/kinds/Painting.h"

namespace korvane {
namespace {

// A grey background is the plain face of a button in the classic colours, so it means the view's
// own face here as well.
QString styleOf(Color backColor) {
  if (backColor == -1) return {};
  const QColor color = toQColor(backColor);
  if (color.saturation() == 0) return {};
  return QString("QPushButton { background: %1; border-color: %1; color: %2; }")
      .arg(color.name(), inkOn(color).name());
}

}  // namespace

QWidget* bindButton(Control& control, const Seat& seat) {
  auto& button = static_cast<Button&>(control);
  auto* widget = new QPushButton(seat.parent);
  widget->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
  clickOnEnter(*widget);
  QObject::connect(widget, &QPushButton::clicked,
                   [&button, seat] { act(seat, button, [&button] { button.click(); }); });
  keepShown(control, *widget, [&button, widget] {
    widget->setText(text(button.look().caption));
    const QString style = styleOf(button.backColor());
    if (widget->styleSheet() != style) widget->setStyleSheet(style);
  });
  return widget;
}

}  // namespace korvane
