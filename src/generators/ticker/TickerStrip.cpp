#include "generators/ticker/TickerStrip.h"

#include <algorithm>
#include <vector>

#include "generators/kit/CellWise.h"
#include "generators/ticker/FontDefinition.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace korvane {
namespace {

// Rows from one glyph of a vertical strip to the next, whatever the font.
constexpr std::int32_t kVerticalPitch = 6;

int rowOf(std::int16_t glyph, std::size_t row) {
  return fontTable.at(static_cast<std::size_t>(glyph)).at(row);
}

int widthOf(std::int16_t glyph) { return rowOf(glyph, 0); }

std::vector<std::int16_t> glyphsOf(const std::string& text) {
  std::vector<std::int16_t> glyphs;
  for (const std::string& character : characters(text)) glyphs.push_back(glyphIndex(character));
  return glyphs;
}

// Dimensions the strip and fills it with the background. Its last column and row are left as they
// are, so the line below the text stays black (docs/kept.md, ticker-black-line).
void clearStrip(Deck& deck, std::int32_t cols, std::int32_t rows, std::int64_t steps) {
  deck.tickerStrip.redim(cols, rows);
  deck.steps = toInt16(steps);
  for (int x = 0; x < cols; ++x) {
    for (int y = 0; y < rows; ++y) deck.tickerStrip.at(x, y) = deck.effect().color2;
  }
}

// Paints columns 0 to `last` of a glyph, which stand from x0 on or, flipped, from x0 + last back.
void paint(Deck& deck, std::int32_t x0, std::int32_t y0, std::int16_t glyph, int last,
           bool flipped) {
  const Effect& effect = deck.effect();
  if (effect.tickerFont != kPaintedFont) return;
  for (int row = 0; row < static_cast<int>(kGlyphRows); ++row) {
    const int bits = rowOf(glyph, static_cast<std::size_t>(row) + 1);
    for (int i = 0; i <= last; ++i) {
      const bool set = (bits >> i & 1) != 0;
      deck.tickerStrip.at(x0 + (flipped ? last - i : i), y0 + row) =
          set ? effect.color1 : effect.color2;
    }
  }
}

void paintGlyphs(Deck& deck, const std::vector<std::int16_t>& glyphs, bool vertical) {
  std::int32_t p = 0;
  for (const std::int16_t glyph : glyphs) {
    const auto draw = deck.effect().tickerMirror != 0 ? tickerDrawGlyphMirrored : tickerDrawGlyph;
    draw(deck, vertical ? 0 : p, vertical ? p : 0, glyph);
    p += vertical ? kVerticalPitch : widthOf(glyph) + 1;
  }
}

}  // namespace

void tickerDrawGlyph(Deck& deck, std::int32_t x0, std::int32_t y0, std::int16_t glyph) {
  paint(deck, x0, y0, glyph, deck.tickerMaxWidth, false);
}

void tickerDrawGlyphMirrored(Deck& deck, std::int32_t x0, std::int32_t y0, std::int16_t glyph) {
  paint(deck, x0, y0, glyph, widthOf(glyph), true);
}

void buildTickerStrip(Deck& deck) {
  const Effect& effect = deck.effect();
  std::vector<std::int16_t> glyphs = glyphsOf(effect.tickerText);
  std::int32_t length = 0;
  deck.tickerMaxWidth = 0;
  for (const std::int16_t glyph : glyphs) {
    length += widthOf(glyph) + 1;
    deck.tickerMaxWidth = std::max(deck.tickerMaxWidth, widthOf(glyph));
  }
  const std::int16_t font = effect.tickerFont;
  const bool vertical = effect.direction == kUp || effect.direction == kDown;
  if (vertical) {
    const double stack = static_cast<double>(glyphs.size()) * (font + 1);
    const std::int32_t height = roundToInt32(stack);
    clearStrip(deck, deck.tickerMaxWidth, height, height);
  } else if (effect.direction == kLeft || effect.direction == kRight) {
    clearStrip(deck, length + deck.tickerMaxWidth, font, length);
  } else {
    return;
  }
  if (effect.tickerBackward != 0) std::reverse(glyphs.begin(), glyphs.end());
  paintGlyphs(deck, glyphs, vertical);
}

}  // namespace korvane
