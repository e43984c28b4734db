#pragma once

#include <functional>
#include <memory>

#include "platform/Platform.h"
#include "platform/WallClock.h"

namespace korvane {

/// The system's timer of the window thread: it rings once, in the thread's loop of events.
class Alarm {
 public:
  Alarm() = default;
  virtual ~Alarm() = default;
  Alarm(const Alarm&) = delete;
  Alarm& operator=(const Alarm&) = delete;

  /// Rings after so many milliseconds, 0 and up; the call before it counts no more.
  virtual void in(std::int64_t milliseconds) = 0;
  virtual void off() = 0;

  std::function<void()> onRing;  ///< set by its owner
};

/// Where events enter a view: what a person does, and the ticks of the timers, which it drives by
/// the machine's clock. Each event is run by itself, and its failure is reported once. The queue
/// must outlive it. [window thread]
class EventGate {
 public:
  EventGate(Platform& platform, TimerQueue& timers, std::unique_ptr<Alarm> alarm);
  ~EventGate();
  EventGate(const EventGate&) = delete;
  EventGate& operator=(const EventGate&) = delete;

  /// Runs one event at the present time; whether it ended well.
  bool run(const std::function<void()>& event);
  // NOLINTNEXTLINE(google-explicit-constructor): it is one, for controls that ask for a gate
  operator Gate() {
    return [this](const std::function<void()>& event) { run(event); };
  }

  std::function<void()> afterEvent;  ///< for the desk: follows each event
  std::function<void()> afterTicks;  ///< for the desk: follows each pass over the timers

 private:
  void runDue();
  void rearm();

  Platform& platform_;
  TimerQueue& timers_;
  WallClock clock_;
  std::unique_ptr<Alarm> alarm_;
};

}  // namespace korvane
