#include "generators/ticker/TickerStrip.h"

#include "generators/ticker/TickerCode.h"
#include "testing/CellEffects.h"
#include "testing/Drawing.h"

namespace korvane {
namespace {

class TickerStrip : public CellEffects {
 protected:
  void SetUp() override {
    CellEffects::SetUp();
    effect().type = kTicker;
    effect().color1 = kWhite;
    effect().color2 = kBlue;
    effect().tickerFont = 5;
  }
  bool build(const std::string& text, int direction) {
    effect().tickerText = text;
    effect().direction = static_cast<std::int16_t>(direction);
    return event([this] { tickerBuild(engine, deck); });
  }
  /// The strip with its last column and row, which nothing fills with background.
  Picture wholeStrip() const {
    const Grid<Color>& strip = deck.tickerStrip;
    std::vector<Color> cells;
    for (int y = 0; y <= strip.rows(); ++y) {
      for (int x = 0; x <= strip.cols(); ++x) cells.push_back(strip.at(x, y));
    }
    return {strip.cols() + 1, strip.rows() + 1, std::move(cells)};
  }
};
KORVANE_BOTH_DECKS(TickerStrip);

struct StripLayout {
  std::vector<int> directions;
  bool backward, mirror;
  Drawing strip;
};

// The text "iL": W is text, B background, and what nothing painted is black. A plain glyph paints
// the field of the widest glyph and one column more, a flipped one its own and one more.
const std::vector<StripLayout> kLayouts = {
    {{3, 7},
     false,
     false,
     {"WBWBBBBBB.",  //
      "BBWBBBBBB.",  //
      "WBWBBBBBB.",  //
      "WBWBBBBBB.",  //
      "WBWWWBBBB.",  //
      ".........."}},
    {{3, 7},
     false,
     true,
     {"BWBBBWBBB.",  //
      "BBBBBWBBB.",  //
      "BWBBBWBBB.",  //
      "BWBBBWBBB.",  //
      "BWBWWWBBB.",  //
      ".........."}},
    {{3, 7},
     true,
     false,
     {"WBBBWBBBB.",  //
      "WBBBBBBBB.",  //
      "WBBBWBBBB.",  //
      "WBBBWBBBB.",  //
      "WWWBWBBBB.",  //
      ".........."}},
    {{3, 7},
     true,
     true,
     {"BBBWBWBBB.",  //
      "BBBWBBBBB.",  //
      "BBBWBWBBB.",  //
      "BBBWBWBBB.",  //
      "BWWWBWBBB.",  //
      ".........."}},
    {{1, 5},
     false,
     false,
     {"WBBB",  //
      "BBBB",  //
      "WBBB",  //
      "WBBB",  //
      "WBBB",  //
      "BBB.",  //
      "WBBB",  //
      "WBBB",  //
      "WBBB",  //
      "WBBB",  //
      "WWWB",  //
      "BBB.",  //
      "...."}},
    {{1, 5},
     false,
     true,
     {"BWB.",  //
      "BBB.",  //
      "BWB.",  //
      "BWB.",  //
      "BWB.",  //
      "BBB.",  //
      "BBBW",  //
      "BBBW",  //
      "BBBW",  //
      "BBBW",  //
      "BWWW",  //
      "BBB.",  //
      "...."}},
    {{1, 5},
     true,
     false,
     {"WBBB",  //
      "WBBB",  //
      "WBBB",  //
      "WBBB",  //
      "WWWB",  //
      "BBB.",  //
      "WBBB",  //
      "BBBB",  //
      "WBBB",  //
      "WBBB",  //
      "WBBB",  //
      "BBB.",  //
      "...."}},
    {{1, 5},
     true,
     true,
     {"BBBW",  //
      "BBBW",  //
      "BBBW",  //
      "BBBW",  //
      "BWWW",  //
      "BBB.",  //
      "BWB.",  //
      "BBB.",  //
      "BWB.",  //
      "BWB.",  //
      "BWB.",  //
      "BBB.",  //
      "...."}},
};

TEST_P(TickerStrip, HasEightLayouts) {
  for (const StripLayout& layout : kLayouts) {
    for (const int direction : layout.directions) {
      SCOPED_TRACE("direction " + std::to_string(direction) + (layout.backward ? " backward" : "") +
                   (layout.mirror ? " mirrored" : ""));
      effect().tickerBackward = layout.backward ? 1 : 0;
      effect().tickerMirror = layout.mirror ? 1 : 0;
      ASSERT_TRUE(build("iL", direction));
      expectPicture(wholeStrip(), layout.strip);
      EXPECT_EQ(deck.tickerMaxWidth, 3);
      EXPECT_EQ(deck.steps, direction == 1 || direction == 5 ? 12 : 6);
    }
  }
}

TEST_P(TickerStrip, TheFifthCellOfTheHashTouchesTheNextGlyph) {
  ASSERT_TRUE(build("#i", 3));
  expectPicture(wholeStrip(), {"BWBWBWBBBBB.",  //
                               "WWWWWBBBBBB.",  //
                               "BWBWBWBBBBB.",  //
                               "WWWWWWBBBBB.",  //
                               "BWBWBWBBBBB.",  //
                               "............"});
}

TEST_P(TickerStrip, UnknownCharactersAreDrawnAsA) {
  ASSERT_TRUE(build("~", 3));
  const Grid<Color> unknown = deck.tickerStrip;
  ASSERT_TRUE(build("A", 3));
  for (int x = 0; x <= unknown.cols(); ++x) {
    for (int y = 0; y <= unknown.rows(); ++y)
      EXPECT_EQ(unknown.at(x, y), deck.tickerStrip.at(x, y));
  }
  EXPECT_TRUE(takeBoxes().empty());
}

TEST_P(TickerStrip, UmlautsCountAsOneCharacter) {
  ASSERT_TRUE(build("ÄÖÜ", 1));
  EXPECT_EQ(deck.steps, 18);
  EXPECT_EQ(deck.tickerMaxWidth, 5);
}

TEST_P(TickerStrip, OnlyTheFivePointFontPaints) {
  effect().tickerFont = 7;
  ASSERT_TRUE(build("i", 3));
  EXPECT_EQ(deck.steps, 2);
  expectPicture(wholeStrip(), {"BBB.", "BBB.", "BBB.", "BBB.", "BBB.", "BBB.", "BBB.", "...."});
  ASSERT_TRUE(build("i", 1));
  EXPECT_EQ(deck.steps, 8);
  expectPicture(wholeStrip(), {"B.", "B.", "B.", "B.", "B.", "B.", "B.", "B.", ".."});
}

TEST_P(TickerStrip, AnEmptyTextIsOneUnpaintedLine) {
  ASSERT_TRUE(build("", 3));
  EXPECT_EQ(deck.tickerMaxWidth, 0);
  EXPECT_EQ(deck.steps, 0);
  expectPicture(wholeStrip(), {".", ".", ".", ".", ".", "."});
  ASSERT_TRUE(build("", 5));
  EXPECT_EQ(deck.steps, 0);
  expectPicture(wholeStrip(), {"."});
}

TEST_P(TickerStrip, AnUnknownDirectionLeavesTheStripAlone) {
  ASSERT_TRUE(build("i", 3));
  ASSERT_TRUE(build("MMM", 4));
  EXPECT_EQ(deck.steps, 2);
  EXPECT_EQ(deck.tickerStrip.cols(), 3);
  EXPECT_EQ(deck.tickerMaxWidth, 5) << "the text was measured all the same";
}

// An M takes six steps in either direction.
TEST_P(TickerStrip, IsAtMost32767StepsLong) {
  for (const int direction : {1, 3, 5, 7}) {
    EXPECT_TRUE(build(std::string(5461, 'M'), direction));
    EXPECT_EQ(deck.steps, 32766);
    EXPECT_FALSE(build(std::string(5462, 'M'), direction));
    EXPECT_EQ(takeFailure(), kOverflow);
  }
}

TEST_P(TickerStrip, AnOverflowEndsTheBuildAndTheRestGoesOn) {
  other.effect().type = kFluid;
  other.effect().direction = 5;
  other.timer1.setInterval(50);
  other.timer1.enable();
  deck.timer1.enable();
  EXPECT_FALSE(build(std::string(6000, 'M'), 3));
  EXPECT_EQ(deck.frame.at(0, 0), (Rgb{0, 0, 255})) << "what was done so far stays";
  EXPECT_FALSE(deck.timer1.enabled());
  takeFailure();
  advance(500);
  EXPECT_TRUE(other.timer1.enabled());
  EXPECT_EQ(takeFailure(), 0);
  EXPECT_TRUE(build("M", 3)) << "and a shorter text works again";
}

// Sizes that only a file can hold.
TEST_P(TickerStrip, AnImpossibleFontEndsTheBuild) {
  effect().tickerFont = -1;
  EXPECT_FALSE(build("M", 3));
  EXPECT_EQ(takeFailure(), kSubscript);
  EXPECT_TRUE(build("M", 1)) << "no row at all, but nothing wrong with it";
  effect().tickerFont = -3;
  EXPECT_FALSE(build("M", 1));
  EXPECT_EQ(takeFailure(), kSubscript);
  effect().tickerFont = 32767;
  EXPECT_FALSE(build("M", 5));
  EXPECT_EQ(takeFailure(), kOverflow);
}

TEST_P(TickerStrip, ThePaintersOfBothDecksPaintOnTheirOwnStrip) {
  ASSERT_TRUE(build("i", 3));
  tickerDrawGlyph(deck, 1, 0, 51);  // an l
  expectPicture(deck.tickerStrip, {"WWB", "BWB", "WWB", "WWB", "WWB"});
  tickerDrawGlyphMirrored(deck, 0, 0, 51);
  expectPicture(deck.tickerStrip, {"BWB", "BWB", "BWB", "BWB", "BWB"});
}

}  // namespace
}  // namespace korvane
