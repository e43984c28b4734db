#pragma once

#include <string>

#include "shell/Plugin.h"

namespace korvane {

/// What "Save Effects" would write, but for where the fader and the selections stand: another text
/// means that the composition was changed. Failures are those of the save.
std::string compositionText(Plugin& plugin);

/// What the save of the grid would write.
std::string definitionText(Plugin& plugin);

}  // namespace korvane
