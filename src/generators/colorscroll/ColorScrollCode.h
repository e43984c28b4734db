#pragma once

#include "state/Engine.h"

namespace korvane {

/// Expands the colour list into the strip; leaves the frame alone. kOverflow if the widths add up
/// to more than 32767.
void buildScrollStrip(Engine& engine, Deck& deck);

/// Moves the picture by one line and lets the next strip colour in.
void tickColorScroll(Engine& engine, Deck& deck);

}  // namespace korvane
