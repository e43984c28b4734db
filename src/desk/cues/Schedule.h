#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace korvane {

/// A time of the day, local, in minutes since midnight; nothing for a text that is none, as in
/// "18:00".
std::optional<int> minutesOfDay(const std::string& text);

/// Hours of every day, by the local clock with its summer time: from 18:00 to 02:00, say. A time
/// that a change of the clock leaves out is the moment of the change; of one that comes twice the
/// first is meant.
class Schedule {
 public:
  /// A night of the schedule, in seconds of universal time since 1970.
  struct Span {
    std::int64_t begin = 0, end = 0;

    bool holds(std::int64_t seconds) const { return seconds >= begin && seconds < end; }
    bool operator==(const Span&) const = default;
  };

  /// Minutes of the day, 0 - 1439; equal ones mean the whole day.
  Schedule(int from, int to) : from_(from), to_(to) {}

  /// The span that holds a moment, else the next one.
  Span at(std::int64_t seconds) const;

 private:
  int from_, to_;
};

}  // namespace korvane
