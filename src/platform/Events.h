#pragma once

#include <functional>

#include "platform/Platform.h"

namespace korvane {

/// The one place where run-time failures are caught: runs one event (a click, a tick, a host
/// call); a failure ends it, is handed to Platform::failed once, and the program goes on.
/// Returns whether the event ended well.
bool runEvent(Platform& platform, const std::function<void()>& event);

}  // namespace korvane
