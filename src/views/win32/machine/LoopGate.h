#pragma once

#include "views/shared/machine/EventGate.h"

namespace korvane::win32 {

/// The gate with a timer of the window thread's message loop. [window thread]
class LoopGate : public EventGate {
 public:
  LoopGate(Platform& platform, TimerQueue& timers);
};

}  // namespace korvane::win32
