#pragma once

#include <cstdint>

#include "state/Engine.h"

namespace korvane {

/// The only point size whose glyphs exist; any other one paints nothing.
inline constexpr std::int16_t kPaintedFont = 5;

/// Renders the text of the deck's effect into `tickerStrip`, one colour per cell, and sets
/// `tickerMaxWidth` and `steps`. kOverflow if the strip is longer than 32767 steps. A direction
/// other than the four leaves strip and steps alone.
void buildTickerStrip(Deck& deck);

/// Paints a glyph slot into the strip with its top left cell at (x0, y0), its field filled up with
/// background: plain over the width of the widest glyph and one more, flipped over its own width
/// and one more.
void tickerDrawGlyph(Deck& deck, std::int32_t x0, std::int32_t y0, std::int16_t glyph);
void tickerDrawGlyphMirrored(Deck& deck, std::int32_t x0, std::int32_t y0, std::int16_t glyph);

}  // namespace korvane
