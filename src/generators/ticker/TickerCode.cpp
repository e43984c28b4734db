#include "generators/ticker/TickerCode.h"

#include <algorithm>

#include "generators/color/ColorCode.h"
#include "generators/kit/CellWise.h"
#include "generators/ticker/TickerStrip.h"
#include "output/Preview.h"
#include "platform/Numbers.h"

namespace korvane {
namespace {

// The share `amount` of the free room, in cells. The product is 16-bit.
std::int16_t shareOfRoom(std::int32_t room, std::int16_t amount) {
  if (room <= 0) return 0;
  return floorToInt16(toInt16((std::int64_t{room} + 1) * amount) / 100.0);
}

// A cell of the strip comes to (col, row) of the picture; beyond the right or lower edge it is left
// out.
void put(Engine& engine, Deck& deck, int col, int row, int x, int y) {
  if (col >= engine.v.matrixCols || row >= engine.v.matrixRows) return;
  setCell(engine, deck, col, row, colorParts(deck.tickerStrip.at(x, y)));
}

// One line of a vertical strip enters at a row of the picture, then `step` goes on.
void feedRow(Engine& engine, Deck& deck, int row, std::int16_t advance) {
  for (int x = 0; x < deck.tickerMaxWidth; ++x)
    put(engine, deck, x + deck.imagePosX, row, x, deck.step);
  deck.step = add16(deck.step, advance);
}

// One line of a horizontal strip, cells 0 to count - 1, enters at a column of the picture.
void feedColumn(Engine& engine, Deck& deck, int col, int count, std::int16_t advance) {
  for (int y = 0; y < count; ++y) put(engine, deck, col, y + deck.imagePosY, deck.step, y);
  deck.step = add16(deck.step, advance);
}

void feed(Engine& engine, Deck& deck) {
  const Effect& effect = deck.effect();
  const int left = deck.imagePosX;
  const int top = deck.imagePosY;
  switch (effect.direction) {
    case kUp:
      return feedRow(engine, deck, engine.v.matrixRows - 1 + top, 1);
    case kLeft:
      return feedColumn(engine, deck, engine.v.matrixCols - 1 + left, effect.tickerFont, 1);
    case kDown:
      return feedRow(engine, deck, top, -1);
    case kRight:
      // Deck B feeds the strip's unpainted last row too: its text trails a black row
      // (docs/kept.md, deck-ticker-row).
      return feedColumn(engine, deck, left, effect.tickerFont + (deck.isB() ? 1 : 0), -1);
    default:
      return;
  }
}

// The strip begins again behind its end, or ends again before its beginning. A strip without
// length stays at its one unpainted line.
void wrap(Deck& deck) {
  if (deck.step >= deck.steps) deck.step = 0;
  if (deck.step < 0) deck.step = std::max(sub16(deck.steps, 1), std::int16_t{0});
}

void runText(Engine& engine, Deck& deck) {
  movePicture(engine, deck);
  wrap(deck);
  feed(engine, deck);
}

// The advance is that of the widest glyph, not of the strip's lines: with narrow letters the
// display drifts over their boundaries, and past the strip's end it fails (docs/kept.md,
// ticker-drift).
void showLetter(Engine& engine, Deck& deck) {
  const std::int32_t width = deck.tickerMaxWidth;
  for (int x = 0; x < width; ++x) {
    for (int y = 0; y <= deck.effect().tickerFont; ++y)
      put(engine, deck, x + deck.imagePosX, y + deck.imagePosY, x, y + deck.step);
  }
  deck.step = toInt16(std::int64_t{deck.step} + width + 1);
  if (deck.step >= deck.steps) deck.step = 0;
  if (deck.step < 0) deck.step = toInt16(std::int64_t{deck.steps} - 1 - width);
}

}  // namespace

void tickerOffset(Engine& engine, Deck& deck) {
  const Effect& effect = deck.effect();
  const std::int32_t roomAcross = engine.v.matrixCols - deck.tickerMaxWidth;
  if (effect.tickerLetter != 0) {
    deck.imagePosX = shareOfRoom(roomAcross, effect.amount);
    deck.imagePosY = toInt16(divTrunc(engine.v.matrixRows - effect.tickerFont, 2));
  } else if (effect.tickerFont != kPaintedFont) {
    return;
  } else if (effect.direction == kUp || effect.direction == kDown) {
    deck.imagePosX = shareOfRoom(roomAcross, effect.amount);
    deck.imagePosY = 0;
  } else if (effect.direction == kLeft || effect.direction == kRight) {
    deck.imagePosY = shareOfRoom(engine.v.matrixRows - kPaintedFont, effect.amount);
    deck.imagePosX = 0;
  }
}

void tickerPlace(Engine& engine, Deck& deck) {
  if (deck.effect().tickerLetter == 0) tickerOffset(engine, deck);
}

void tickerBuild(Engine& engine, Deck& deck) {
  deck.timer1.disable();
  deck.step = 0;
  fillFrame(engine, deck, colorParts(deck.effect().color2));
  publishDeckFrame(engine, deck);
  buildTickerStrip(deck);
  if (deck.effect().beatControl == 0) deck.timer1.enable();
}

void tickerTick(Engine& engine, Deck& deck) {
  deck.effect().tickerLetter == 0 ? runText(engine, deck) : showLetter(engine, deck);
}

}  // namespace korvane
