#pragma once

#include "views/shared/machine/EventGate.h"

namespace korvane::qt {

/// The gate with an alarm of the toolkit.
class LoopGate : public EventGate {
 public:
  LoopGate(Platform& platform, TimerQueue& timers);
};

}  // namespace korvane::qt
