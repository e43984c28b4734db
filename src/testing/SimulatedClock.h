#pragma once

#include <algorithm>
#include <functional>

#include "platform/Clock.h"

namespace korvane {

/// Clocks that go on only when they are told to, or slept by. The time of day can be set at will.
class SimulatedClock : public Clock {
 public:
  Time now() override { return now_; }
  void sleepUntil(Time time) override {
    while (nextDue && nextDue() <= time) {
      now_ = std::max(now_, nextDue());
      onDue();
    }
    now_ = std::max(now_, time);
  }
  std::int64_t timeOfDay() override {
    constexpr std::int64_t kDay = std::int64_t{24} * 60 * 60 * 1000;
    const std::int64_t time = (milliseconds() + jumped) % kDay;
    return time < 0 ? time + kDay : time;
  }

  /// Since the start.
  std::int64_t milliseconds() const {
    return std::chrono::duration_cast<std::chrono::milliseconds>(now_.time_since_epoch()).count();
  }
  /// Lets time go by that nobody slept through: the machine was busy.
  void pass(std::int64_t milliseconds) {
    sleepUntil(now_ + std::chrono::milliseconds(milliseconds));
  }

  std::int64_t jumped = 0;  ///< what was added to the time of day, in milliseconds
  /// What other threads do while this one sleeps or is busy: when they are due next, and that they
  /// are.
  std::function<Time()> nextDue;
  std::function<void()> onDue;

 private:
  Time now_{};
};

}  // namespace korvane
