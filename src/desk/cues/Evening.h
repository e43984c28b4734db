#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "desk/cues/Schedule.h"
#include "desk/cues/ShowRun.h"

namespace korvane {

/// How a show runs when nobody is there.
struct EveningPlan {
  enum class What { Nothing, Cues, AutoPlay };
  /// What the lamps do outside the hours: they are dark, hold what they show, or the program ends.
  enum class After { Dark, Hold, End };

  What what = What::Nothing;
  std::optional<Schedule> hours{};  ///< none: at once, and for ever
  After after = After::Dark;
};

/// Runs a show by the clock: on at the hour, and when it is switched on late, with what should be
/// on by then.
class Evening {
 public:
  /// `clock` tells the universal time in milliseconds since 1970.
  Evening(ShowRun& run, const EveningPlan& plan, std::function<std::int64_t()> clock);

  /// The show is on already, from an earlier run: without hours it is not begun anew.
  void goOn() { begun_ = on_ = !plan_.hours; }
  /// Looks at the clock; call it at least once a second.
  void attend();
  /// The show is on now.
  bool on() const { return on_; }
  /// The lamps are to be dark.
  bool dark() const { return !on_ && plan_.hours && plan_.after == EveningPlan::After::Dark; }
  /// The program is to end.
  bool over() const { return over_; }
  /// Seconds until the show goes on or off; negative without hours.
  double untilChange() const;

 private:
  void begin(std::int64_t elapsed);
  void end();

  ShowRun& run_;
  EveningPlan plan_;
  std::function<std::int64_t()> clock_;
  Schedule::Span span_;
  std::int64_t looked_ = 0;  // seconds
  bool begun_ = false, on_ = false, over_ = false;
};

}  // namespace korvane
