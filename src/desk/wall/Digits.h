#pragma once

#include "platform/Raster.h"

namespace korvane {

/// Width and height in pixels of a number, 0 or more, in digits of 3 x 5 dots.
int widthOfNumber(int number, int dot);
inline int heightOfNumber(int dot) { return 5 * dot; }

/// Draws a number with its upper left corner at (x, y), each dot a square of `dot` pixels.
void drawNumber(Raster& picture, int x, int y, int number, int dot, Color color);

}  // namespace korvane
