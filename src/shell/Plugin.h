#pragma once

#include "generators/Dialogs.h"
#include "persistence/MatrixConf.h"
#include "platform/Platform.h"
#include "shell/clsTharnPlugIn.h"
#include "state/Engine.h"
#include "windows/MatrixForm.h"

namespace korvane {

/// One whole plug-in: the shared state, all windows, and the class that the desk calls.
struct Plugin {
  explicit Plugin(Platform& platform) : engine(platform) {}

  Engine engine;
  Dialogs dialogs{engine};
  MatrixConf matrixConf{engine};
  MatrixForm matrixForm{engine, matrixConf};
  clsTharnPlugIn plugIn{engine, matrixForm, matrixConf};
};

}  // namespace korvane
