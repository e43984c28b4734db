#pragma once

#include <string>
#include <vector>

#include "platform/Grid.h"

namespace korvane {

/// Room on a terminal, in characters.
struct TerminalSize {
  int columns = 80;
  int lines = 24;
};

/// A frame as lines of a terminal with 24-bit colours. Each character shows two points, one above
/// the other, about as high as wide. A lamp takes a square of up to 4 by 4 points, as many as the
/// room allows; a frame that is too wide or too high for it is made smaller, with lamps left out.
/// Escape sequences: ECMA-48, SGR 38;2 and 48;2 (ITU-T T.416).
std::vector<std::string> terminalLines(const Frame& frame, const TerminalSize& room);

/// What has to be written for the terminal to show the lines instead of those that it shows, from
/// its top on; empty when nothing differs. Lines that are gone are cleared.
std::string linesThatDiffer(const std::vector<std::string>& lines,
                            const std::vector<std::string>& shown);

}  // namespace korvane
