#pragma once

#include <vector>

#include "commands/Console.h"
#include "shell/Plugin.h"

namespace korvane {

/// All operations that the desk may call on the plug-in class and on the tool window. The helper
/// object of `ITharnPlugin_Init` is always the given host.
std::vector<Operation> operationsOf(Plugin& plugin, Host& host);

}  // namespace korvane
