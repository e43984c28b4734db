#pragma once

#include "state/Engine.h"

namespace korvane {

/// Reckons from `amount` where the text stands across its direction of travel, or where the letter
/// of letter mode stands, with the `tickerMaxWidth` of the last build. Running text of a font other
/// than the 5-point one stays where it was. kOverflow if (room + 1) x `amount` exceeds 16 bits.
void tickerOffset(Engine& engine, Deck& deck);
/// The same as a selected row does it: letters stay where they were.
void tickerPlace(Engine& engine, Deck& deck);

/// Renders the text into the strip, clears the picture to the background and restarts the pass.
void tickerBuild(Engine& engine, Deck& deck);

/// One step of the Ticker effect.
void tickerTick(Engine& engine, Deck& deck);

}  // namespace korvane
