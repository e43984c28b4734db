#include <QPushButton>

#include "platform/Controls.h"
#include "views/qt/kinds/Binder.h"
#include "views/qt/kinds/Painting.h"

namespace korvane::qt {
namespace {

QString styleOf(const Button& button) {
  if (button.plain()) return {};
  const QColor color = toQColor(button.backColor());
  return QString("QPushButton { background: %1; border-color: %1; color: %2; }")
      .arg(color.name(), inkOn(color).name());
}

}  // namespace

QWidget* makeWidget(Button& button, const Seat& seat) {
  auto* widget = new QPushButton(seat.parent);
  widget->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
  clickOnEnter(*widget);
  QObject::connect(widget, &QPushButton::clicked,
                   [&button, seat] { act(seat, button, [&button] { button.click(); }); });
  keepShown(button, *widget, [&button, widget] {
    widget->setText(text(button.look().caption));
    const QString style = styleOf(button);
    if (widget->styleSheet() != style) widget->setStyleSheet(style);
  });
  return widget;
}

}  // namespace korvane::qt
