#include "generators/colorscroll/ColorScrollCode.h"

#include <array>
#include <vector>

#include "output/Preview.h"
#include "platform/Failure.h"
#include "platform/Numbers.h"

namespace korvane {
namespace {

enum class Along { Rows, Columns };  // which lines move
enum class Shift { ToFirst, ToLast, Inward, Outward };
// The whole line, or a window of the strip that starts at one end of the row and grows.
enum class Entry { Line, FromRight, FromLeft };

struct Direction {
  Along along;
  Shift shift;
  Entry entry = Entry::Line;
};

// The directions 1 - 12. The diagonal ones shift as up or down.
constexpr std::array<Direction, 12> kDirections = {{
    {Along::Rows, Shift::ToFirst},                    // up
    {Along::Rows, Shift::ToFirst, Entry::FromRight},  // up-left
    {Along::Columns, Shift::ToFirst},                 // left
    {Along::Rows, Shift::ToLast, Entry::FromRight},   // down-left
    {Along::Rows, Shift::ToLast},                     // down
    {Along::Rows, Shift::ToLast, Entry::FromLeft},    // down-right
    {Along::Columns, Shift::ToLast},                  // right
    {Along::Rows, Shift::ToFirst, Entry::FromLeft},   // up-right
    {Along::Columns, Shift::Inward},
    {Along::Columns, Shift::Outward},
    {Along::Rows, Shift::Inward},
    {Along::Rows, Shift::Outward},
}};

// A frame as lines: rows from the top or columns from the left.
class Lines {
 public:
  Lines(Frame& frame, Along along, const Variablen& v)
      : frame_(frame),
        rows_(along == Along::Rows),
        count_(rows_ ? v.matrixRows : v.matrixCols),
        length_(rows_ ? v.matrixCols : v.matrixRows) {}

  int last() const { return count_ - 1; }
  int half() const { return divTrunc(count_, 2); }

  void copy(int to, int from) {
    for (int i = 0; i < length_; ++i) cell(to, i) = cell(from, i);
  }
  void fill(int line, const Rgb& color) {
    for (int i = 0; i < length_; ++i) cell(line, i) = color;
  }

 private:
  Rgb& cell(int line, int i) { return rows_ ? frame_.at(i, line) : frame_.at(line, i); }

  Frame& frame_;
  bool rows_;
  int count_;
  int length_;
};

// On an odd side both halves of an inward shift end on the centre line, and the second copy wins.
void shiftLines(Lines& lines, Shift shift) {
  const int last = lines.last();
  const int half = lines.half();
  switch (shift) {
    case Shift::ToFirst:
      for (int line = 1; line <= last; ++line) lines.copy(line - 1, line);
      break;
    case Shift::ToLast:
      for (int line = last - 1; line >= 0; --line) lines.copy(line + 1, line);
      break;
    case Shift::Inward:
      for (int line = half; line >= 1; --line) {
        lines.copy(line, line - 1);
        lines.copy(last - line, last - line + 1);
      }
      break;
    case Shift::Outward:
      for (int line = 1; line <= half; ++line) {
        lines.copy(line - 1, line);
        lines.copy(last - line + 1, last - line);
      }
      break;
  }
}

// Writes the colour to the lines that the shift has left.
void enterLines(Lines& lines, Shift shift, const Rgb& color) {
  const bool first = shift == Shift::ToLast || shift == Shift::Inward;
  const bool last = shift == Shift::ToFirst || shift == Shift::Inward;
  if (first) lines.fill(0, color);
  if (last) lines.fill(lines.last(), color);
  if (shift != Shift::Outward) return;
  lines.fill(lines.half(), color);
  lines.fill(lines.last() - lines.half(), color);
}

const Rgb& stripColor(const Deck& deck, int entry) {
  return deck.scrollStrip.at(static_cast<std::size_t>(entry));
}

// The row's cells beyond the window keep what the shift left there: the picture spreads from the
// corner over as many ticks as there are columns.
void enterWindow(const Variablen& v, Deck& deck, int row, Entry entry) {
  int index = deck.colorIndex;
  for (int i = 0; i <= deck.step; ++i) {
    const int col = entry == Entry::FromRight ? v.matrixCols - 1 - i : i;
    deck.frame.at(col, row) = stripColor(deck, index);
    index = index == 0 ? deck.scrollLength - 1 : index - 1;
  }
  if (deck.step < v.matrixCols - 1) ++deck.step;
}

void scroll(const Variablen& v, Deck& deck, const Direction& direction) {
  Lines lines(deck.frame, direction.along, v);
  shiftLines(lines, direction.shift);
  if (direction.entry == Entry::Line) {
    enterLines(lines, direction.shift, stripColor(deck, deck.colorIndex));
  } else {
    const int row = direction.shift == Shift::ToFirst ? lines.last() : 0;
    enterWindow(v, deck, row, direction.entry);
  }
}

std::int16_t totalWidth(const Effect& effect) {
  std::int16_t total = 0;
  for (std::int16_t i = 0; i < effect.colorCount; ++i) {
    total = toInt16(std::int64_t{total} + effect.itemWidths.at(static_cast<std::size_t>(i)));
  }
  if (total < 0) throw Failure(kSubscript, "a strip of negative width");
  return total;
}

void writeHardBands(const Effect& effect, std::vector<Rgb>& strip) {
  std::size_t entry = 0;
  for (std::size_t i = 0; i < static_cast<std::size_t>(effect.colorCount); ++i) {
    const Rgb own = colorParts(effect.colors.at(i));
    for (std::int32_t j = 0; j < effect.itemWidths.at(i); ++j) strip.at(entry++) = own;
  }
}

// The colour at step j of w on the way from one colour to the next.
Rgb blendInBand(const Rgb& from, const Rgb& to, std::int32_t j, std::int32_t w) {
  Rgb result{};
  for (std::size_t i = 0; i < result.size(); ++i) {
    result[i] = static_cast<std::uint8_t>(
        roundToInt16(static_cast<double>(from[i] * (w - j) + to[i] * j) / w));
  }
  return result;
}

// Each band ends on its pure colour. The band before the first one is the last, which the record
// keeps in `color2`.
void writeBlendedBands(Effect& effect, std::vector<Rgb>& strip) {
  std::size_t entry = 0;
  const auto count = static_cast<std::size_t>(effect.colorCount);
  effect.color2 = effect.colors.at(count - 1);
  Rgb before = colorParts(effect.color2);
  for (std::size_t i = 0; i < count; ++i) {
    const Rgb own = colorParts(effect.colors.at(i));
    const std::int32_t width = effect.itemWidths.at(i);
    for (std::int32_t j = 1; j <= width; ++j)
      strip.at(entry++) = blendInBand(before, own, j, width);
    before = own;
  }
}

}  // namespace

void buildScrollStrip(Engine&, Deck& deck) {
  Effect& effect = deck.effect();
  if (effect.colorCount < 2) return deck.timer1.disable();
  deck.scrollLength = totalWidth(effect);
  deck.scrollStrip.assign(static_cast<std::size_t>(deck.scrollLength) + 1, Rgb{});
  if (effect.scrollFadeMode == 0) {
    writeHardBands(effect, deck.scrollStrip);
  } else {
    writeBlendedBands(effect, deck.scrollStrip);
  }
}

void tickColorScroll(Engine& engine, Deck& deck) {
  const int direction = deck.effect().direction;
  if (direction >= 1 && direction <= static_cast<int>(kDirections.size())) {
    scroll(engine.v, deck, kDirections.at(static_cast<std::size_t>(direction - 1)));
  }
  deck.colorIndex = deck.colorIndex < deck.scrollLength - 1 ? add16(deck.colorIndex, 1) : 0;
  publishDeckFrame(engine, deck);
}

}  // namespace korvane
