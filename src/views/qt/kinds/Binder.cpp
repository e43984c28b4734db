#include "views/qt/kinds/Binder.h"

#include <utility>

#include "platform/KeyNames.h"
#include "platform/Keys.h"

namespace korvane::qt {

QWidget* bind(Control& control, const Seat& seat) {
  return asItsKind(control, [&seat](auto& own) { return makeWidget(own, seat); });
}

void keepShown(Control& control, QWidget& widget, std::function<void()> show) {
  control.onShown = [&control, &widget, show = std::move(show)] {
    const Look& look = control.look();
    widget.setToolTip(text(look.toolTip));
    widget.setEnabled(look.enabled);
    widget.setVisible(look.visible);
    show();
  };
  QObject::connect(&widget, &QObject::destroyed, [&control] { control.onShown = nullptr; });
  control.onShown();
}

void act(const Seat& seat, Control& control, const std::function<void()>& event) {
  seat.gate.run(event);
  if (control.onShown) control.onShown();
}

int keyCode(int key) {
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return kEnterKey;
    case Qt::Key_Escape:
      return kEscapeKey;
    case Qt::Key_Space:
      return kSpaceKey;
    case Qt::Key_F2:
      return kEditKey;
    default:
      return 0;
  }
}

// A sign that needs Shift on this keyboard is named by itself; so is a key of the number block.
std::string keyName(const QKeyEvent& event) {
  Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
  const bool sign =
      event.key() > Qt::Key_Space && event.key() < 0x80 && !QChar(event.key()).isLetterOrNumber();
  if (sign) held &= ~Qt::ShiftModifier;
  const QKeySequence keys(QKeyCombination(held, static_cast<Qt::Key>(event.key())));
  return keyNamed(keys.toString(QKeySequence::PortableText).toStdString()).value_or("");
}

}  // namespace korvane::qt
