#include "platform/TimerQueue.h"

#include <algorithm>
#include <utility>

namespace korvane {
namespace {

/// Sets a flag as long as it lives.
class Raised {
 public:
  explicit Raised(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
  ~Raised() { flag_ = before_; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;

 private:
  bool& flag_;
  bool before_;
};

}  // namespace

Timer::Timer(TimerQueue& queue, std::string name) : queue_(queue), name_(std::move(name)) {
  queue_.timers_.push_back(this);
}

void Timer::startCount() {
  due_ = queue_.present() + interval_;
  if (queue_.onCount) queue_.onCount();
}

void Timer::enable() {
  if (enabled_) return;
  enabled_ = true;
  order_ = ++queue_.enabledSoFar_;
  startCount();
}

void Timer::setInterval(std::int32_t milliseconds) {
  interval_ = milliseconds;
  if (enabled_) startCount();
}

std::int64_t TimerQueue::present() {
  if (clock && !advancing_) now_ = std::max(now_, clock());
  return now_;
}

Timer* TimerQueue::earliest(std::int64_t until) const {
  Timer* best = nullptr;
  for (Timer* timer : timers_) {
    if (!timer->due(until)) continue;
    if (best == nullptr ||
        std::pair(timer->due_, timer->order_) < std::pair(best->due_, best->order_)) {
      best = timer;
    }
  }
  return best;
}

std::int64_t TimerQueue::nextDue() const {
  const Timer* next = earliest(kNever);
  return next == nullptr ? kNever : next->due_;
}

void TimerQueue::fire(Timer& timer, const Gate& gate) {
  timer.due_ += timer.interval_;
  gate([&timer] {
    if (timer.onTimer) timer.onTimer();
  });
}

void TimerQueue::advanceTo(std::int64_t until, const Gate& gate) {
  const Raised advancing(advancing_);
  while (Timer* timer = earliest(until)) {
    now_ = std::max(now_, timer->due_);
    fire(*timer, gate);
  }
  now_ = std::max(now_, until);
}

void TimerQueue::runDue(std::int64_t now, const Gate& gate) {
  now_ = std::max(now_, now);
  const std::int64_t start = now_;
  std::vector<Timer*> due;
  for (Timer* timer : timers_) {
    if (timer->due(start)) due.push_back(timer);
  }
  std::sort(due.begin(), due.end(), [](const Timer* a, const Timer* b) {
    return std::pair(a->due_, a->order_) < std::pair(b->due_, b->order_);
  });
  for (Timer* timer : due) {
    if (!timer->due(start)) continue;  // a tick before it has stopped it or counts it anew
    fire(*timer, gate);
    if (timer->due(present())) timer->due_ = now_ + timer->interval_;
  }
}

}  // namespace korvane
