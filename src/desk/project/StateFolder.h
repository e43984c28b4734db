#pragma once

#include <string>

namespace korvane {

/// The folder in which programs keep what they need from one run to the next: korvane/ in the
/// person's state folder (XDG_STATE_HOME, or .local/state at home), with its slash. Empty without a
/// home.
std::string stateFolder();

}  // namespace korvane
