#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace korvane {

inline constexpr std::size_t kGlyphs = 98;
inline constexpr std::size_t kGlyphRows = 5;

/// The bitmap font of the Ticker, by glyph slot and row. Row 0 is the width in cells, 1 - 5; rows 1
/// to 5 are the cells from top to bottom, bit 0 the leftmost. Slots 98 - 100 and row 6 stay 0.
using FontTable = std::array<std::array<std::uint8_t, 7>, 101>;
extern const FontTable fontTable;

/// The glyph slot of a text of one character (UTF-8), 0 - 97. Slot 0, an `A`, for any other text.
std::int16_t glyphIndex(std::string_view text);

}  // namespace korvane
