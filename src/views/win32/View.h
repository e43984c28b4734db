#pragma once

#include "state/Engine.h"
#include "views/win32/machine/EventGate.h"
#include "views/win32/windows/DesktopView.h"

namespace korvane {

/// The windows of a plug-in on this thread's screen, and its timers, driven by the thread's message
/// loop. Nothing of it is left when it goes.
struct WinView {
  explicit WinView(Engine& engine)
      : gate(engine.platform, engine.timers), desktop(engine.desktop, gate, *engine.mainWindow) {}

  EventGate gate;
  DesktopView desktop;
};

}  // namespace korvane
