// The machine's clocks, as a seam: a simulation can stand in for them.
#pragma once

#include <chrono>
#include <cstdint>

namespace korvane {

class Clock {
 public:
  using Time = std::chrono::steady_clock::time_point;

  virtual ~Clock() = default;

  /// Goes on evenly, whatever is done to the time of day.
  virtual Time now() = 0;
  virtual void sleepUntil(Time time) = 0;
  /// Milliseconds since midnight, local time. A person or the network may set it at any moment.
  virtual std::int64_t timeOfDay() = 0;
};

/// The clocks of this machine.
Clock& machineClock();

}  // namespace korvane
