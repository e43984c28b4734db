#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "platform/Gate.h"

namespace korvane {

class TimerQueue;

/// The least that a fade or a transition asks of its timer, in milliseconds: one with more steps
/// than milliseconds takes one for each and ends, where an interval of 0 would stop it for ever.
inline constexpr std::int32_t kShortestStep = 1;

/// A periodic timer. Its interval counts from the moment of enabling; enabling a running timer
/// changes nothing; setting the interval of a running timer starts its count anew. An interval
/// of 0 never fires.
class Timer {
 public:
  Timer(TimerQueue& queue, std::string name);
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

  void enable();
  void disable() { enabled_ = false; }
  void setEnabled(bool on) { on ? enable() : disable(); }
  void setInterval(std::int32_t milliseconds);

  const std::string& name() const { return name_; }
  bool enabled() const { return enabled_; }
  std::int32_t interval() const { return interval_; }  ///< milliseconds, 1000 at start

  std::function<void()> onTimer;

 private:
  friend class TimerQueue;
  void startCount();
  bool due(std::int64_t now) const { return enabled_ && interval_ > 0 && due_ <= now; }

  TimerQueue& queue_;
  std::string name_;
  bool enabled_ = false;
  std::int32_t interval_ = 1000;
  std::int64_t due_ = 0;
  std::uint64_t order_ = 0;  // when it was enabled, among all timers
};

/// All timers of one plug-in. Time is an argument: whoever drives the queue says what time it is,
/// or gives it a clock to look at (`WallClock`).
class TimerQueue {
 public:
  static constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::max();

  using Gate = korvane::Gate;

  std::int64_t now() const { return now_; }  ///< milliseconds since the start
  /// Time at which the next timer is due, kNever if none runs.
  std::int64_t nextDue() const;
  /// Moves time on to `until`. Timers fire at their due times, in the order of these, those due
  /// at the same time in the order in which they were enabled. Every tick runs through the gate.
  void advanceTo(std::int64_t until, const Gate& gate);
  /// Moves time on to the wall clock's `now` and fires once each timer that has become due; what
  /// a late caller missed is not made up for.
  void runDue(std::int64_t now, const Gate& gate);

  const std::vector<Timer*>& timers() const { return timers_; }

  /// What time it is, in milliseconds since the start. An interval counts from the moment of
  /// enabling as this tells it, however long the event has taken by then. Without a clock time
  /// stands still but for the calls above; within advanceTo it does so with one, too.
  std::function<std::int64_t()> clock;
  /// For who waits until the next timer is due: that may have changed.
  std::function<void()> onCount;

 private:
  friend class Timer;
  Timer* earliest(std::int64_t until) const;
  /// The time as it is now: moves now() on to the clock's.
  std::int64_t present();
  void fire(Timer& timer, const Gate& gate);

  std::int64_t now_ = 0;
  bool advancing_ = false;  // within advanceTo
  std::uint64_t enabledSoFar_ = 0;
  std::vector<Timer*> timers_;
};

}  // namespace korvane
