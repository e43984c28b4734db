#include "views/qt/machine/EventGate.h"

#include <algorithm>
#include <limits>

#include "platform/Events.h"

namespace korvane {

EventGate::EventGate(Platform& platform, TimerQueue& timers)
    : platform_(platform), timers_(timers) {
  clock_.start();
  alarm_.setTimerType(Qt::PreciseTimer);
  alarm_.setSingleShot(true);
  QObject::connect(&alarm_, &QTimer::timeout, &alarm_, [this] {
    runDue();
    rearm();
  });
}

bool EventGate::run(const std::function<void()>& event) {
  runDue();
  const bool well = runEvent(platform_, event);
  rearm();
  return well;
}

// A message box inside an event has a loop of its own, so the alarm must be set before the event as
// well: the timers go on behind the box.
void EventGate::runDue() {
  timers_.runDue(clock_.elapsed(), [this](const std::function<void()>& tick) {
    rearm();
    runEvent(platform_, tick);
  });
  rearm();
}

void EventGate::rearm() {
  const std::int64_t due = timers_.nextDue();
  if (due == TimerQueue::kNever) return alarm_.stop();
  const std::int64_t wait = std::max<std::int64_t>(0, due - clock_.elapsed());
  alarm_.start(static_cast<int>(std::min<std::int64_t>(wait, std::numeric_limits<int>::max())));
}

}  // namespace korvane
