#include "views/win32/machine/EventGate.h"

#include <algorithm>

#include "platform/Events.h"
#include "views/win32/machine/Module.h"

namespace korvane {
namespace {

constexpr UINT_PTR kAlarm = 1;

std::int64_t ticks() {
  LARGE_INTEGER count;
  LARGE_INTEGER perSecond;
  QueryPerformanceCounter(&count);
  QueryPerformanceFrequency(&perSecond);
  const std::int64_t whole = count.QuadPart / perSecond.QuadPart;
  return whole * 1000 + count.QuadPart % perSecond.QuadPart * 1000 / perSecond.QuadPart;
}

}  // namespace

EventGate::EventGate(Platform& platform, TimerQueue& timers)
    : platform_(platform),
      timers_(timers),
      start_(ticks() - timers.now()),
      alarm_(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                             moduleHandle(), nullptr)) {
  SetWindowLongPtrW(alarm_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  timers_.onCount = [this] {
    timers_.setNow(now());
    alarmIn(0);
  };
  rearm();
}

EventGate::~EventGate() {
  timers_.onCount = nullptr;
  DestroyWindow(alarm_);
}

// A script may have moved the queue's time ahead; it goes on from there.
std::int64_t EventGate::now() {
  start_ = std::min(start_, ticks() - timers_.now());
  return ticks() - start_;
}

void CALLBACK EventGate::ring(HWND window, UINT, UINT_PTR, DWORD) {
  auto& gate = *reinterpret_cast<EventGate*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  try {
    gate.runDue();
  } catch (...) {  // nothing is left to tell it with, and it must not reach the message loop
  }
}

bool EventGate::run(const std::function<void()>& event) {
  runDue();
  return runEvent(platform_, event);
}

// A message box inside a tick has a loop of its own, so the alarm is set before the tick as well:
// the timers go on behind the box.
void EventGate::runDue() {
  timers_.runDue(now(), [this](const std::function<void()>& tick) {
    rearm();
    runEvent(platform_, tick);
  });
  rearm();
}

void EventGate::rearm() {
  const std::int64_t due = timers_.nextDue();
  if (due == TimerQueue::kNever) {
    KillTimer(alarm_, kAlarm);
  } else {
    alarmIn(due - now());
  }
}

void EventGate::alarmIn(std::int64_t milliseconds) {
  const std::int64_t wait = std::clamp<std::int64_t>(milliseconds, USER_TIMER_MINIMUM, 60'000);
  SetTimer(alarm_, kAlarm, static_cast<UINT>(wait), ring);
}

}  // namespace korvane
