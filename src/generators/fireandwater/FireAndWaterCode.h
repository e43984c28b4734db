#pragma once

#include <cstdint>

#include "state/Engine.h"

namespace korvane {

/// A component of a flame's cell: rounded, ties to even; above 255 it is 255, and below 70 it is
/// not dimmed but black.
std::uint8_t flameComponent(double value);

/// One step of the Fire effect: repaints one cell in three. On deck B kOverflow for a grid with
/// more cells than its 16-bit count.
void fireTick(Engine& engine, Deck& deck);

/// One step of the Fluid effect: the picture moves one cell and a fresh line enters behind it.
void fluidTick(Engine& engine, Deck& deck);

}  // namespace korvane
