#pragma once

#include <string>

#include "platform/Controls.h"
#include "platform/Form.h"
#include "platform/TimerQueue.h"
#include "views/win32/machine/LoopGate.h"
#include "views/win32/windows/DesktopView.h"

namespace korvane::win32 {

/// Tells of a failure in a window of its own, while the other windows stay usable: a failure that
/// every tick brings must not shut the person out.
class FailureBox {
 public:
  FailureBox(Platform& platform, const std::string& text);

  /// Counts the failure up if it is the one that the open box tells of; false if it isn't.
  bool repeated(const std::string& text);

 private:
  struct Content : Form {
    explicit Content(const std::string& text);

    Label what;
    Label times;
    Button OK;
  };

  std::string text_;
  int repeats_ = 1;
  Content content_;
  TimerQueue noTimers_;
  LoopGate gate_;
  Desktop desktop_;
  DesktopView view_;
};

}  // namespace korvane::win32
