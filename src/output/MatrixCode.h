#pragma once

#include <cstdint>

#include "state/Engine.h"

namespace korvane {

/// Mixes both decks into `frameM` at the position m (0 deck A - 1 deck B) by `fadeTypeNow`, then
/// hands the frame to the host and to the simulation window, each if its check box is set. Does
/// not draw the preview.
void mixFrame(Engine& engine, double m);
/// The same for one cell.
void mixCell(Engine& engine, double m, std::int16_t col, std::int16_t row);

/// One UserInteraction, then SetChannel for each channel whose byte differs from `frameSent`, in
/// the order column, row, red, green, blue.
void sendFrame(Engine& engine);
void sendCell(Engine& engine, std::int16_t col, std::int16_t row);

/// Draws `frameM`, or one cell of it, on the simulation window.
void simDrawFrame(Engine& engine);
void simDrawCell(Engine& engine, std::int16_t col, std::int16_t row);

}  // namespace korvane
