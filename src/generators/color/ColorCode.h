#pragma once

#include "state/Engine.h"

namespace korvane {

/// Fills a deck's frame with `color1` of its effect, without publishing it.
void paintColor(Engine& engine, Deck& deck);
/// Paints the ramp from `color1` to `color2` in the effect's `direction`, without publishing it.
/// Shows a message and paints nothing for a direction outside 1 - 10. kDivisionByZero on a matrix
/// that is too short for the direction, kOverflow on one too long (scale above 128 at full
/// components).
void paintGradient(Engine& engine, Deck& deck);

/// The same, published.
void renderColor(Engine& engine, Deck& deck);
void renderGradient(Engine& engine, Deck& deck);

/// Sets every cell of a deck's frame, without publishing it.
void fillFrame(Engine& engine, Deck& deck, const Rgb& color);

}  // namespace korvane
