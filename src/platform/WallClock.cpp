#include "platform/WallClock.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace korvane {

using std::chrono::duration_cast;
using std::chrono::milliseconds;

namespace {
constexpr std::int64_t kLongestSleep = 50;  // ms
}  // namespace

WallClock::WallClock(TimerQueue& timers, std::function<void()> passed, Clock& clock)
    : timers_(timers),
      passed_(std::move(passed)),
      clock_(clock),
      start_(clock.now() - milliseconds(timers.now())) {
  timers_.clock = [this] { return elapsed(); };
}

// A script may have moved the timers' time ahead; it goes on from there.
std::int64_t WallClock::elapsed() {
  const Clock::Time now = clock_.now();
  start_ = std::min(start_, now - milliseconds(timers_.now()));
  return duration_cast<milliseconds>(now - start_).count();
}

void WallClock::pass(const TimerQueue::Gate& gate) {
  timers_.runDue(elapsed(), gate);
  passed_();
}

void WallClock::advance(std::int64_t time, const TimerQueue::Gate& gate) {
  const std::int64_t end = elapsed() + time;
  for (;;) {
    pass(gate);
    if (timers_.now() >= end || (mayGoOn && !mayGoOn())) return;
    const std::int64_t next = std::min({timers_.nextDue(), end, elapsed() + kLongestSleep});
    clock_.sleepUntil(start_ + milliseconds(next));
  }
}

int WallClock::untilNext() {
  if (timers_.nextDue() == TimerQueue::kNever) return -1;
  const std::int64_t wait = std::max<std::int64_t>(timers_.nextDue() - elapsed(), 0);
  return static_cast<int>(std::min<std::int64_t>(wait, std::numeric_limits<int>::max()));
}

}  // namespace korvane
