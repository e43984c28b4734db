#pragma once

#include "generators/Dialogs.h"
#include "persistence/MatrixConf.h"
#include "persistence/quickConf.h"
#include "platform/Platform.h"
#include "shell/clsTharnPlugIn.h"
#include "state/Engine.h"
#include "windows/MatrixConfigHelp.h"
#include "windows/MatrixForm.h"
#include "windows/MatrixHelp.h"
#include "windows/MxSimForm.h"

namespace korvane {

/// One whole plug-in: the shared state, all windows, and the class that the desk calls.
struct Plugin {
  explicit Plugin(Platform& platform) : engine(platform) {}

  /// A window by its type; kObjectNotSet if there is none.
  template <class Window>
  Window& window() {
    return engine.desktop.get<Window>();
  }

  Engine engine;
  Dialogs dialogs{engine};
  MatrixConf matrixConf{engine};
  MatrixForm matrixForm{engine, matrixConf};
  quickConf quickConfiguration{engine, matrixConf};
  MxSimForm mxSimForm{engine, matrixForm.mxsim_active};
  MatrixHelp matrixHelp{engine};
  MatrixConfigHelp matrixConfigHelp{engine};
  clsTharnPlugIn plugIn{engine, matrixForm, matrixConf};
};

}  // namespace korvane
