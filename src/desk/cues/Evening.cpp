#include "desk/cues/Evening.h"

#include <utility>

namespace korvane {
namespace {

constexpr std::int64_t kInTime = 2000;  // ms: so late, the first cue still begins with its fade

}  // namespace

Evening::Evening(ShowRun& run, const EveningPlan& plan, std::function<std::int64_t()> clock)
    : run_(run), plan_(plan), clock_(std::move(clock)) {}

void Evening::attend() {
  if (over_) return;
  if (!plan_.hours) {
    if (!std::exchange(begun_, true)) begin(0);
    return;
  }
  const std::int64_t now = clock_(), seconds = now / 1000;
  const Schedule::Span before = span_;
  // A clock that was set may have left the span, forwards or back.
  if (!begun_ || seconds >= span_.end || seconds < looked_) span_ = plan_.hours->at(seconds);
  looked_ = seconds;
  const bool same = std::exchange(begun_, true) && before == span_;
  const bool wanted = span_.holds(seconds);
  if (on_ && (!wanted || !same)) end();
  if (wanted && !on_ && !over_) begin(now - span_.begin * 1000);
}

void Evening::begin(std::int64_t elapsed) {
  on_ = true;
  const bool automatic = plan_.what == EveningPlan::What::AutoPlay;
  if (plan_.what == EveningPlan::What::Nothing) return;
  if (elapsed > kInTime) return run_.catchUp(elapsed, automatic);
  if (automatic) return run_.startAutoPlay(true);
  run_.cues.stop();
  run_.cues.go();
}

void Evening::end() {
  on_ = false;
  run_.startAutoPlay(false);
  run_.cues.stop();
  over_ = plan_.after == EveningPlan::After::End;
}

double Evening::untilChange() const {
  if (!plan_.hours) return -1;
  const std::int64_t change = on_ ? span_.end : span_.begin;
  return static_cast<double>(change * 1000 - clock_()) / 1000;
}

}  // namespace korvane
