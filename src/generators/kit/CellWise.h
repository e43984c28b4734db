#pragma once

#include <cstdint>

#include "state/Engine.h"

namespace korvane {

// What the effects share that move cell by cell: Fire, Fluid and Ticker.

/// The directions in which Fluid and Ticker move.
enum StraightDirection : std::int16_t { kUp = 1, kLeft = 3, kDown = 5, kRight = 7 };

/// Which components of a published cell are noted in `frameWork`.
enum class Noted { All, RedAlone };

/// Sets a cell of the deck's frame. If it differs from what was noted of it, the change is noted in
/// `frameWork`, the cell is drawn, and, if no fade runs, mixed and the mix drawn.
void setCell(Engine& engine, Deck& deck, int col, int row, const Rgb& color,
             Noted noted = Noted::All);

/// Moves the picture one cell in the effect's direction and publishes the cells. The line behind it
/// stays as it was. Any other direction moves nothing.
void movePicture(Engine& engine, Deck& deck);

}  // namespace korvane
