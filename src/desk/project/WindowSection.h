#pragma once

#include <vector>

#include "desk/project/DeskProject.h"
#include "platform/Desktop.h"

namespace korvane {

/// The member "windows" of a desk's project: where these windows stand and which of them are open.
/// The first one is the program's own: it stays open, and in front.
Section windowSection(Desktop& desktop, const std::vector<Form*>& windows);

}  // namespace korvane
