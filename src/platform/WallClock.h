#pragma once

#include <cstdint>
#include <functional>

#include "platform/Clock.h"
#include "platform/TimerQueue.h"

namespace korvane {

/// Milliseconds since midnight, local time, by the machine's clock.
inline std::int64_t wallTimeOfDay() { return machineClock().timeOfDay(); }

/// Runs timers by the machine's clock, which goes on from the timers' own time. It is their clock
/// as long as it lives.
class WallClock {
 public:
  /// `passed` follows each pass over the timers.
  explicit WallClock(
      TimerQueue& timers, std::function<void()> passed = [] {}, Clock& clock = machineClock());
  ~WallClock() { timers_.clock = nullptr; }
  WallClock(const WallClock&) = delete;
  WallClock& operator=(const WallClock&) = delete;

  /// Fires what has become due.
  void pass(const TimerQueue::Gate& gate);
  /// Lets so many milliseconds go by, firing what becomes due.
  void advance(std::int64_t milliseconds, const TimerQueue::Gate& gate);
  /// Milliseconds until the next timer is due, -1 if none runs.
  int untilNext();

  /// Asked while time goes by, often enough for a person who waits: no ends `advance` early.
  std::function<bool()> mayGoOn;

 private:
  std::int64_t elapsed();

  TimerQueue& timers_;
  std::function<void()> passed_;
  Clock& clock_;
  Clock::Time start_;  // of the timers' time
};

}  // namespace korvane
