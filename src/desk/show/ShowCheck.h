#pragma once

#include <optional>
#include <string>

#include "platform/Platform.h"

namespace korvane {

/// Loads a show with its grid from the machine into a plug-in of its own that nobody sees. What
/// goes wrong, for people; nothing if it can be opened.
std::optional<std::string> whatIsWrongWith(const std::string& show, Platform& machine);

}  // namespace korvane
