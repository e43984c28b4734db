#pragma once

#include <array>
#include <string>
#include <vector>

#include "testing/TestPlugin.h"

namespace korvane {

/// A second, slow deck for the effects that move cell by cell: nested lists, and each cell
/// published for itself. What it expects of the frame, of what was noted, of the previews, of the
/// mix and of the desk's calls is compared with the product after a tick.
class SlowDeck {
 public:
  using Cell = std::array<int, 3>;
  using Cells = std::vector<std::vector<Cell>>;  ///< by column, then row

  /// Starts where the deck stands.
  SlowDeck(const Variablen& v, const Deck& deck);

  /// The change test for a cell of `frame`.
  void publish(int col, int row, bool noteRedAlone = false);
  /// Sets a cell and publishes it.
  void set(int col, int row, const Cell& color);
  /// Moves the picture one cell: 1 up, 3 left, 5 down, 7 right.
  void move(int direction);
  /// Draws and mixes everything.
  void publishAll();
  /// Fails unless the deck, its preview, the mix and its preview look the same, and the desk was
  /// called in the same way since the last time.
  void expectSame(const Engine& engine, const Deck& deck, const std::vector<std::string>& calls);

  int cols, rows;
  Cells frame, noted;

 private:
  void send(int col, int row);

  bool fading_;
  Cells shown_, mixed_, shownMix_, sent_;
  std::vector<std::string> calls_;
};

/// The effects that move cell by cell, each over both decks: output on, the deck heard alone.
class CellEffects : public TestDecks {
 protected:
  void SetUp() override;

  /// Gives the grid a size, as a definition file can: also one that the windows do not offer.
  /// Channels are counted up column by column; all frames are black.
  void dimension(int cols, int rows);
  /// Gives every cell of the deck's frame a colour that is nowhere noted, drawn or mixed.
  void fill(Color color);
  /// Runs four steps of an effect and fails unless each does what a slow model of it does, whose
  /// random numbers start as those of the effect. A fade runs in one case of five.
  void expectSteps(void (*tick)(Engine&, Deck&),
                   void (*slowStep)(SlowDeck&, const Effect&, Random));
  int number(int below);  ///< a number of the test's own random generator, 0 - below - 1

  Effect& effect() { return deck.effect(); }

 private:
  Random random_;
};

/// Pixel in the middle of a cell's square.
Color pixelOf(const PictureBox& box, const PreviewGeometry& at, int col, int row);

}  // namespace korvane
