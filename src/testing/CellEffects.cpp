#include "testing/CellEffects.h"

#include <utility>

#include "output/Preview.h"
#include "persistence/MatrixDefinition.h"
#include "playback/DeckPlayback.h"

namespace korvane {
namespace {

SlowDeck::Cell cellOf(Color color) {
  return {colorPart(color, kRedMask), colorPart(color, kGreenMask), colorPart(color, kBlueMask)};
}

SlowDeck::Cells copyOf(const Frame& frame, int cols, int rows) {
  SlowDeck::Cells cells;
  for (int col = 0; col < cols; ++col) {
    cells.emplace_back();
    for (int row = 0; row < rows; ++row) cells.back().push_back(cellOf(rgb(frame.at(col, row))));
  }
  return cells;
}

SlowDeck::Cells pixelsOf(const PictureBox& box, const PreviewGeometry& at, int cols, int rows) {
  SlowDeck::Cells cells;
  for (int col = 0; col < cols; ++col) {
    cells.emplace_back();
    for (int row = 0; row < rows; ++row) cells.back().push_back(cellOf(pixelOf(box, at, col, row)));
  }
  return cells;
}

}  // namespace

Color pixelOf(const PictureBox& box, const PreviewGeometry& at, int col, int row) {
  const int middle = at.cell / 2 - 1;
  return box.raster().pixel(col * at.cell + at.left + middle, row * at.cell + at.top + middle);
}

SlowDeck::SlowDeck(const Variablen& v, const Deck& deck)
    : cols(v.matrixCols),
      rows(v.matrixRows),
      frame(copyOf(deck.frame, cols, rows)),
      noted(copyOf(deck.frameWork, cols, rows)),
      fading_(v.fadeRunning),
      shown_(pixelsOf(deck.picture, deck.preview, cols, rows)),
      mixed_(copyOf(v.frameM, cols, rows)),
      shownMix_(mixed_),
      sent_(copyOf(v.frameSent, cols, rows)) {}

void SlowDeck::send(int col, int row) {
  const auto c = static_cast<std::size_t>(col);
  const auto r = static_cast<std::size_t>(row);
  for (std::size_t k = 0; k < 3; ++k) {
    const int channel = 1 + 3 * (col * rows + row) + static_cast<int>(k);
    if (channel > 512 || sent_[c][r][k] == mixed_[c][r][k]) continue;
    sent_[c][r][k] = mixed_[c][r][k];
    calls_.push_back("SetChannel " + std::to_string(channel) + " " +
                     std::to_string(mixed_[c][r][k]));
  }
}

void SlowDeck::publish(int col, int row, bool noteRedAlone) {
  const auto c = static_cast<std::size_t>(col);
  const auto r = static_cast<std::size_t>(row);
  const Cell& now = frame[c][r];
  if (noted[c][r] == now) return;
  noted[c][r][0] = now[0];
  if (!noteRedAlone) noted[c][r] = now;
  shown_[c][r] = now;
  if (fading_) return;
  mixed_[c][r] = now;
  shownMix_[c][r] = now;
  calls_.emplace_back("UserInteraction");
  send(col, row);
}

void SlowDeck::set(int col, int row, const Cell& color) {
  frame.at(static_cast<std::size_t>(col)).at(static_cast<std::size_t>(row)) = color;
  publish(col, row);
}

// Far cells first, so that no cell is read after it was written.
void SlowDeck::move(int direction) {
  const Cells before = frame;
  const int dCol = direction == 3 ? -1 : direction == 7 ? 1 : 0;
  const int dRow = direction == 1 ? -1 : direction == 5 ? 1 : 0;
  if (dCol == 0 && dRow == 0) return;
  const auto pull = [&](int col, int row) {
    const int fromCol = col - dCol;
    const int fromRow = row - dRow;
    if (fromCol < 0 || fromRow < 0 || fromCol >= cols || fromRow >= rows) return;
    set(col, row, before[static_cast<std::size_t>(fromCol)][static_cast<std::size_t>(fromRow)]);
  };
  const bool byRows = dRow != 0;
  const int lines = byRows ? rows : cols;
  const int across = byRows ? cols : rows;
  for (int i = 0; i < lines; ++i) {
    const int line = direction <= 3 ? i : lines - 1 - i;
    for (int j = 0; j < across; ++j) byRows ? pull(j, line) : pull(line, j);
  }
}

void SlowDeck::publishAll() {
  shown_ = frame;
  if (fading_) return;
  mixed_ = frame;
  shownMix_ = frame;
  calls_.emplace_back("UserInteraction");
  for (int col = 0; col < cols; ++col) {
    for (int row = 0; row < rows; ++row) send(col, row);
  }
}

void SlowDeck::expectSame(const Engine& engine, const Deck& deck,
                          const std::vector<std::string>& calls) {
  const Variablen& v = engine.v;
  EXPECT_EQ(copyOf(deck.frame, cols, rows), frame) << "the picture";
  EXPECT_EQ(copyOf(deck.frameWork, cols, rows), noted) << "what was noted";
  EXPECT_EQ(pixelsOf(deck.picture, deck.preview, cols, rows), shown_) << "the deck's preview";
  EXPECT_EQ(copyOf(v.frameM, cols, rows), mixed_) << "the mix";
  EXPECT_EQ(pixelsOf(engine.master.picture, v.previewM, cols, rows), shownMix_)
      << "the preview of the mix";
  EXPECT_EQ(calls, std::exchange(calls_, {})) << "the desk's calls";
}

void CellEffects::SetUp() {
  ASSERT_TRUE(open());
  stopDeck(v.A);
  stopDeck(v.B);
  dimension(12, 12);
}

void CellEffects::dimension(int cols, int rows) {
  v.matrixCols = static_cast<std::int16_t>(cols);
  v.matrixRows = static_cast<std::int16_t>(rows);
  dimensionMatrix(engine);
  v.matrix.countChannelsUp(1, Matrix::Order::ColumnByColumn);
  for (PictureBox* box : {&v.A.picture, &v.B.picture, &master.picture}) {
    box->clear();
    set_matrix_values(engine, *box);
  }
  v.outputActive = true;
  v.masterValue = deck.isB() ? 1 : 0;
}

void CellEffects::expectSteps(void (*tick)(Engine&, Deck&),
                              void (*slowStep)(SlowDeck&, const Effect&, Random)) {
  v.fadeRunning = number(5) == 0;
  platform.time = number(86'400'000);
  for (int step = 0; step < 4 && !HasFailure(); ++step) {
    SlowDeck slow(v, deck);
    ++platform.time;  // the random numbers start from the clock
    engine.randomize();
    slowStep(slow, effect(), engine.random);
    takeCalls();
    ASSERT_TRUE(event([this, tick] { tick(engine, deck); }));
    slow.expectSame(engine, deck, takeCalls());
  }
}

void CellEffects::fill(Color color) { deck.frame.fill(colorParts(color)); }

int CellEffects::number(int below) { return static_cast<int>(double{random_.next()} * below); }

}  // namespace korvane
