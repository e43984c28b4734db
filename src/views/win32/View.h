#pragma once

#include "state/Engine.h"
#include "views/win32/machine/LoopGate.h"
#include "views/win32/windows/DesktopView.h"

namespace korvane::win32 {

/// The windows of a plug-in on this thread's screen, and its timers, driven by the thread's message
/// loop. Nothing of it is left when it goes.
struct WinView {
  explicit WinView(Engine& engine)
      : gate(engine.platform, engine.timers), desktop(engine.desktop, gate, *engine.mainWindow) {}

  LoopGate gate;
  DesktopView desktop;
};

}  // namespace korvane::win32
