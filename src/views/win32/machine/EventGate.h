#pragma once

#include <windows.h>

#include <functional>

#include "platform/Platform.h"
#include "platform/TimerQueue.h"

namespace korvane {

/// Where events enter: what a person does, and the ticks of the timers, which it drives by the
/// monotonic clock and one timer of the window thread's message loop. Each event is run by itself,
/// and its failure is reported once. [window thread]
class EventGate {
 public:
  EventGate(Platform& platform, TimerQueue& timers);
  ~EventGate();
  EventGate(const EventGate&) = delete;
  EventGate& operator=(const EventGate&) = delete;

  /// Runs one event at the present time; whether it ended well.
  bool run(const std::function<void()>& event);

 private:
  static void CALLBACK ring(HWND window, UINT message, UINT_PTR id, DWORD time);

  std::int64_t now();
  void runDue();
  void rearm();
  void alarmIn(std::int64_t milliseconds);

  Platform& platform_;
  TimerQueue& timers_;
  std::int64_t start_;  // of the queue's time, by the system's clock
  HWND alarm_;          // a window that is never seen; its one timer is the alarm
};

}  // namespace korvane
