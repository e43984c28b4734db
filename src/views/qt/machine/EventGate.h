#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <functional>

#include "platform/Platform.h"
#include "platform/TimerQueue.h"

namespace korvane {

/// Where events enter: what a person does, and the ticks of the timers, which it drives by the
/// monotonic clock. Each event is run by itself, and its failure is reported once.
class EventGate {
 public:
  EventGate(Platform& platform, TimerQueue& timers);

  /// Runs one event at the present time; whether it ended well. Intervals of timers that it starts
  /// count from now.
  bool run(const std::function<void()>& event);

 private:
  void runDue();
  void rearm();

  Platform& platform_;
  TimerQueue& timers_;
  QElapsedTimer clock_;
  QTimer alarm_;
};

}  // namespace korvane
