#include "views/win32/machine/LoopGate.h"

#include <windows.h>

#include <algorithm>

#include "views/win32/machine/Module.h"

namespace korvane::win32 {
namespace {

constexpr UINT_PTR kAlarm = 1;
constexpr std::int64_t kLongest = 60'000;  // ms; a longer wait rings in between

class MessageAlarm : public Alarm {
 public:
  MessageAlarm()
      : window_(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                moduleHandle(), nullptr)) {
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  }
  ~MessageAlarm() override { DestroyWindow(window_); }
  MessageAlarm(const MessageAlarm&) = delete;
  MessageAlarm& operator=(const MessageAlarm&) = delete;

  void in(std::int64_t milliseconds) override {
    const std::int64_t wait = std::clamp<std::int64_t>(milliseconds, USER_TIMER_MINIMUM, kLongest);
    SetTimer(window_, kAlarm, static_cast<UINT>(wait), ring);
  }
  void off() override { KillTimer(window_, kAlarm); }

 private:
  static void CALLBACK ring(HWND window, UINT, UINT_PTR, DWORD) {
    const auto* alarm =
        reinterpret_cast<const MessageAlarm*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    try {
      alarm->onRing();
    } catch (...) {  // nothing is left to tell it with, and it must not reach the message loop
    }
  }

  HWND window_;  // never seen
};

}  // namespace

LoopGate::LoopGate(Platform& platform, TimerQueue& timers)
    : EventGate(platform, timers, std::make_unique<MessageAlarm>()) {}

}  // namespace korvane::win32
