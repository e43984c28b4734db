#include "views/shared/machine/EventGate.h"

#include <utility>

#include "platform/Events.h"

namespace korvane {

// A timer may be started within an event that then waits in a loop of its own, or by a call that
// does not pass here: the alarm is set each time an interval begins to count.
EventGate::EventGate(Platform& platform, TimerQueue& timers, std::unique_ptr<Alarm> alarm)
    : platform_(platform), timers_(timers), clock_(timers), alarm_(std::move(alarm)) {
  alarm_->onRing = [this] { runDue(); };
  timers_.onCount = [this] { rearm(); };
  rearm();
}

EventGate::~EventGate() { timers_.onCount = nullptr; }

bool EventGate::run(const std::function<void()>& event) {
  runDue();
  const bool well = runEvent(platform_, event);
  if (afterEvent) afterEvent();
  return well;
}

// A message box inside a tick has a loop of its own, so the alarm is set before the tick as well:
// the timers go on behind the box. What ticks have done is not taken for what the next event does.
void EventGate::runDue() {
  bool ticked = false;
  clock_.pass([&](const std::function<void()>& tick) {
    ticked = true;
    rearm();
    runEvent(platform_, tick);
  });
  rearm();
  if (ticked && afterTicks) afterTicks();
}

void EventGate::rearm() {
  const int wait = clock_.untilNext();
  wait < 0 ? alarm_->off() : alarm_->in(wait);
}

}  // namespace korvane
