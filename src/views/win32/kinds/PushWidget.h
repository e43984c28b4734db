#pragma once

#include <algorithm>

#include "views/win32/kinds/Widget.h"

namespace korvane::win32 {

/// What buttons of all sorts share: a click is one event, and Enter clicks as space does.
class PushWidget : public Widget {
 public:
  using Widget::Widget;

 protected:
  virtual void clicked() = 0;

  void command(WORD code) override {
    // The second press of a double click is a press as well.
    if (code == BN_CLICKED || code == BN_DOUBLECLICKED) act([this] { clicked(); });
  }
  std::optional<LRESULT> message(UINT message, WPARAM w, LPARAM) override {
    if (w != VK_RETURN || (message != WM_KEYDOWN && message != WM_CHAR)) return std::nullopt;
    if (message == WM_KEYDOWN) act([this] { clicked(); });
    return 0;
  }
};

}  // namespace korvane::win32
