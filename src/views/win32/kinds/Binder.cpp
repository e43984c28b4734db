#include "views/win32/kinds/Binder.h"

namespace korvane::win32 {

std::unique_ptr<Widget> bind(Control& control, const Seat& seat) {
  return asItsKind(control, [&seat](auto& own) { return makeWidget(own, seat); });
}

}  // namespace korvane::win32
