#pragma once

#include <windows.h>

#include <vector>

#include "platform/Form.h"
#include "views/shared/machine/EventGate.h"

namespace korvane::win32 {

/// The menu bar of a form's window. The form must outlive it; the window destroys the menus.
class MenuBar {
 public:
  MenuBar(const Form& form, HWND window, EventGate& gate);

  /// Shows the items of a menu that is about to open as they are now.
  void refresh(HMENU menu) const;
  /// Runs the item with this number; false if there is none.
  bool run(UINT number) const;
  /// Runs the item with the key that was pressed, Control and Shift as they are held; false if
  /// there is none.
  bool press(WPARAM key) const;

 private:
  void click(MenuItem& item) const;

  EventGate& gate_;
  std::vector<MenuItem*> items_;  // by number, from 1
};

}  // namespace korvane::win32
