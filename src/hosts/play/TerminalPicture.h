#pragma once

#include <string>

#include "platform/Grid.h"

namespace korvane {

/// A frame as lines of a terminal with 24-bit colours: each character shows two lamps, one above
/// the other, twice as wide as a character so that lamps look square. Escape sequences: ECMA-48,
/// SGR 38;2 and 48;2 (ITU-T T.416).
std::string terminalPicture(const Frame& frame);

/// Moves the terminal's writing place back to the first line of a picture of this frame.
std::string backToTop(const Frame& frame);

}  // namespace korvane
