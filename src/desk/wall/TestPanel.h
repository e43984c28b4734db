#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "desk/wall/LampTest.h"
#include "platform/Controls.h"
#include "platform/Layout.h"
#include "platform/TimerQueue.h"

namespace korvane {

/// The controls of the lamp test: what is lit, and the steps, by hand or by themselves.
class TestPanel {
 public:
  explicit TestPanel(TimerQueue& timers);

  /// The wall that is tested. A test that runs goes on where it was, as far as it can.
  void setPatch(const Patch& patch);
  bool on() const { return test.checked(); }
  const LampTest& state() const { return state_; }
  /// Goes to a lamp on the wire.
  void goTo(const LampAt& lamp);
  /// Ends the test.
  void end() { test.setValue(0); }

  /// All of them, in tab order.
  std::vector<Control*> controls();
  Layout layout();

  /// The test began, went on, or ended: the lamps that are lit are others.
  std::function<void()> onChange;

  Group testGroup;
  CheckBox test;
  ListBox what, light;
  TextBox at;
  Button previous, next;
  CheckBox byItself;
  ListBox pace;
  Label testWords;

 private:
  void bind();
  void take(const LampTest& state);
  void chosen();
  void typed();
  void switched();
  void run();

  Patch patch_;
  LampTest state_;
  Timer timer_;
  bool filling_ = false;
};

}  // namespace korvane
