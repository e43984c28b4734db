#include "output/MatrixCode.h"

#include <algorithm>

#include "output/CellSquares.h"
#include "output/Mix.h"
#include "platform/Failure.h"
#include "platform/Numbers.h"

namespace korvane {
namespace {

// A run of cells that lie one after another in the frames: one cell, or all columns. A run of
// columns includes their spare rows, whose bytes nobody reads.
struct Run {
  const Rgb* a;
  const Rgb* b;
  Rgb* mixed;
  float* map;
  std::size_t cells;
  std::size_t rows;  // of a column, the spare one left out

  const std::uint8_t* bytesA() const { return a->data(); }
  const std::uint8_t* bytesB() const { return b->data(); }
  std::uint8_t* bytesM() const { return mixed->data(); }
  std::size_t bytes() const { return cells * 3; }
};

// Without a column or a row there is nothing to loop over. A definition file can ask for that.
bool hasCells(const Variablen& v) { return v.matrixCols > 0 && v.matrixRows > 0; }

// A grid that does not have the size of the matrix was left behind when dimensioning failed.
template <class T>
void requireSize(const Grid<T>& grid, const Variablen& v) {
  if (grid.cols() != v.matrixCols || grid.rows() != v.matrixRows) throw Failure(kSubscript);
}

Run wholeFrame(Variablen& v) {
  for (const Frame* frame : {&v.frameA, &v.frameB, &v.frameM}) requireSize(*frame, v);
  requireSize(v.fadeMap, v);
  return {v.frameA.data(),  v.frameB.data(), v.frameM.data(),
          v.fadeMap.data(), v.frameM.span(), static_cast<std::size_t>(v.matrixRows)};
}

Run oneCell(Variablen& v, int col, int row) {
  return {&v.frameA.at(col, row),
          &v.frameB.at(col, row),
          &v.frameM.at(col, row),
          &v.fadeMap.at(col, row),
          1,
          1};
}

void setMap(const Run& run, bool deckB) { std::fill_n(run.map, run.cells, deckB ? 1.0F : 0.0F); }

void mixCrossFade(const Run& run, double m) {
  if (m == 0) {
    std::copy_n(run.a, run.cells, run.mixed);
  } else if (m == 1) {
    std::copy_n(run.b, run.cells, run.mixed);
  } else {
    crossFade(run.bytesA(), run.bytesB(), run.bytesM(), run.bytes(), m);
  }
  setMap(run, m > 0.5);
}

// A position outside 0 to 1, which only a project file can hold, may lead out of the bytes: what
// lies before the cell that fails stays.
void mixCellsOutside(const Run& run, std::int16_t type, double m, const Rgb& middle) {
  for (std::size_t cell = 0; cell < run.cells; ++cell) {
    const bool spare = cell % (run.rows + 1) == run.rows;
    if (!spare) mixOutside(type, run.a[cell], run.b[cell], run.mixed[cell], m, middle);
  }
  setMap(run, m > 0.5);
}

bool obeysPosition(std::int16_t type) { return type < kRandom || type == kAdd; }

Rgb middleOf(const Engine& engine) {
  const bool black = engine.v.fadeTypeNow != kColorFade;
  return black ? Rgb{} : colorParts(engine.master.MFadeColor.backColor());
}

void mix(Engine& engine, const Run& run, double m) {
  const std::int16_t type = engine.v.fadeTypeNow;
  const bool inside = m >= 0 && m <= 1;
  if (!inside && obeysPosition(type)) return mixCellsOutside(run, type, m, middleOf(engine));
  switch (type) {
    case kCrossFade:
      return mixCrossFade(run, m);
    case kBlackFade:
    case kColorFade:
      fadeThrough(run.bytesA(), run.bytesB(), run.bytesM(), run.bytes(), m, middleOf(engine));
      return setMap(run, m > 0.5);
    case kAdd:
      addFade(run.bytesA(), run.bytesB(), run.bytesM(), run.bytes(), m);
      return setMap(run, m > 0.5);
    default:
      return selectByMap(run.a, run.b, run.map, run.mixed, run.cells);
  }
}

// Sends the components of a cell that differ. A channel that the host refuses keeps its old byte in
// `frameSent`, so that the next pass tries it again.
void sendChanges(Engine& engine, int col, int row) {
  Variablen& v = engine.v;
  const ChannelMap::Codes& codes = v.channelMap.at(col, row);
  for (std::size_t component = 0; component < 3; ++component) {
    if (codes[component] > kLastSentChannel) continue;
    const std::uint8_t value = v.frameM.at(col, row)[component];
    std::uint8_t& sent = v.frameSent.at(col, row)[component];
    if (value == sent) continue;
    engine.host().SetChannel(codes[component], value, true);
    sent = value;
  }
}

bool differ(const std::uint8_t* __restrict a, const std::uint8_t* __restrict b,
            const std::uint8_t* __restrict mask, std::size_t n) {
  std::uint8_t bits = 0;
  for (std::size_t k = 0; k < n; ++k)
    bits = static_cast<std::uint8_t>(bits | ((a[k] ^ b[k]) & mask[k]));
  return bits != 0;
}

// Whether a channel that is sent has changed among `cells` cells from column `col` on.
bool changed(const Variablen& v, int col, std::size_t cells) {
  return differ(v.frameM.at(col, 0).data(), v.frameSent.at(col, 0).data(),
                v.channelMap.sendable().at(col, 0).data(), cells * 3);
}

// The products are of 16 bits.
Squares::Square simSquare(const Variablen& v, std::int16_t col, std::int16_t row) {
  const int x = add16(mul16(col, v.simCellW), v.simLeft);
  const int y = add16(mul16(row, v.simCellH), v.simTop);
  return {x, y, rgb(v.frameM.at(col, row))};
}

}  // namespace

void mixFrame(Engine& engine, double m) {
  if (hasCells(engine.v)) mix(engine, wholeFrame(engine.v), m);
  if (engine.v.outputActive) sendFrame(engine);
  if (engine.v.simActive) simDrawFrame(engine);
}

void mixCell(Engine& engine, double m, std::int16_t col, std::int16_t row) {
  mix(engine, oneCell(engine.v, col, row), m);
  if (engine.v.outputActive) sendCell(engine, col, row);
  if (engine.v.simActive) simDrawCell(engine, col, row);
}

void sendFrame(Engine& engine) {
  const Variablen& v = engine.v;
  engine.host().UserInteraction();
  if (!hasCells(v)) return;
  for (const Frame* frame : {&v.frameM, &v.frameSent, &v.channelMap.sendable()})
    requireSize(*frame, v);
  if (!changed(v, 0, v.frameM.span())) return;
  for (int col = 0; col < v.matrixCols; ++col) {
    if (!changed(v, col, static_cast<std::size_t>(v.matrixRows))) continue;
    for (int row = 0; row < v.matrixRows; ++row) sendChanges(engine, col, row);
  }
}

void sendCell(Engine& engine, std::int16_t col, std::int16_t row) {
  engine.host().UserInteraction();
  sendChanges(engine, col, row);
}

void simDrawFrame(Engine& engine) {
  const Variablen& v = engine.v;
  drawCells(engine.sim, v, v.simCellW - 2, v.simCellH - 2,
            [&v](std::int16_t col, std::int16_t row) { return simSquare(v, col, row); });
}

void simDrawCell(Engine& engine, std::int16_t col, std::int16_t row) {
  const Variablen& v = engine.v;
  drawCell(engine.sim, v, v.simCellW - 2, v.simCellH - 2, col, row, simSquare(v, col, row));
}

}  // namespace korvane
