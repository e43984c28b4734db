#pragma once

#include <memory>

#include "platform/Platform.h"
#include "state/Engine.h"

namespace korvane {

/// What the component runs on. [the thread that owns the plug-in's windows]
class Machine {
 public:
  /// Windows that a person sees, and running timers, for as long as it exists.
  struct View {
    virtual ~View() = default;
  };

  virtual ~Machine() = default;

  virtual Platform& services() = 0;
  virtual std::unique_ptr<View> show(Engine& engine) = 0;
};

/// This machine: its message boxes and dialogs, native windows, and a timer of the window thread.
std::unique_ptr<Machine> makeMachine();

}  // namespace korvane
