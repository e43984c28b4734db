#include "generators/ticker/TickerCode.h"

#include "testing/Drawing.h"
#include "testing/TickerEffect.h"

namespace korvane {
namespace {

class Ticker : public TickerEffect {};
KORVANE_BOTH_DECKS(Ticker);

TEST_P(Ticker, RunsLeftAndRepeatsWithoutAPause) {
  dimension(6, 5);
  ASSERT_TRUE(build("L", 3) && tick(4));
  expectPicture(deck.frame, {"BBWBBB",  //
                             "BBWBBB",  //
                             "BBWBBB",  //
                             "BBWBBB",  //
                             "BBWWWB"});
  ASSERT_TRUE(tick());
  expectPicture(deck.frame, {"BWBBBW",  //
                             "BWBBBW",  //
                             "BWBBBW",  //
                             "BWBBBW",  //
                             "BWWWBW"});
}

TEST_P(Ticker, RunsRightInReadingOrder) {
  dimension(6, 5);
  ASSERT_TRUE(build("L", 7) && tick(5));
  expectPicture(deck.frame, {"WBBBWB",  //
                             "WBBBWB",  //
                             "WBBBWB",  //
                             "WBBBWB",  //
                             "WWWBWB"});
}

TEST_P(Ticker, RunsUp) {
  dimension(5, 8);
  ASSERT_TRUE(build("L", 1) && tick(6));
  expectPicture(deck.frame, {"BBBBB",  //
                             "BBBBB",  //
                             "WBBBB",  //
                             "WBBBB",  //
                             "WBBBB",  //
                             "WBBBB",  //
                             "WWWBB",  //
                             "BBBBB"});
}

TEST_P(Ticker, RunsDownInReadingOrder) {
  dimension(5, 8);
  ASSERT_TRUE(build("L", 5) && tick(7));
  expectPicture(deck.frame, {"WBBBB",  //
                             "WBBBB",  //
                             "WBBBB",  //
                             "WBBBB",  //
                             "WWWBB",  //
                             "BBBBB",  //
                             "WBBBB",  //
                             "BBBBB"});
}

TEST_P(Ticker, AnyOtherDirectionStandsStill) {
  dimension(6, 5);
  ASSERT_TRUE(build("L", 3) && tick(3));
  const Frame before = deck.frame;
  const std::int16_t step = deck.step;
  effect().direction = 4;
  ASSERT_TRUE(tick(3));
  for (int col = 0; col < 6; ++col) {
    for (int row = 0; row < 5; ++row) EXPECT_EQ(deck.frame.at(col, row), before.at(col, row));
  }
  EXPECT_EQ(deck.step, step);
}

TEST_P(Ticker, ReadsTheStripForwardUpAndLeftAndBackwardDownAndRight) {
  struct Pass {
    int direction;
    std::vector<int> steps;  // after each tick
  };
  for (const Pass& pass : {Pass{3, {1, 2, 3, 4, 1}}, Pass{7, {-1, 2, 1, 0, -1, 2}},
                           Pass{1, {1, 2, 3, 4, 5, 6, 1}}, Pass{5, {-1, 4, 3, 2, 1, 0, -1, 4}}}) {
    ASSERT_TRUE(build("L", pass.direction));
    std::vector<int> steps;
    while (steps.size() < pass.steps.size() && tick()) steps.push_back(deck.step);
    EXPECT_EQ(steps, pass.steps) << "direction " << pass.direction;
  }
}

// Deck B feeds the strip's last row too, which nothing painted: black, whatever the background.
TEST_P(Ticker, OnlyDeckBsRightRunningTextTrailsABlackRow) {
  dimension(4, 7);
  ASSERT_TRUE(build("L", 7) && tick(3));
  const std::string below = deck.isB() ? "...B" : "BBBB";
  expectPicture(deck.frame, {"BBWB",  //
                             "BBWB",  //
                             "BBWB",  //
                             "BBWB",  //
                             "WBWB",  //
                             below,   //
                             "BBBB"});
  ASSERT_TRUE(build("L", 3) && tick(3));
  expectPicture(Picture(deck.frame).cut(0, 5, 4, 2), {"BBBB", "BBBB"});
}

TEST_P(Ticker, AnEmptyTextFeedsBlackSideways) {
  for (const int direction : {3, 7}) {
    dimension(3, 5);
    ASSERT_TRUE(build("", direction));
    EXPECT_EQ(deck.steps, 0);
    for (int i = 0; i < 3; ++i) {
      ASSERT_TRUE(tick());
      EXPECT_EQ(deck.step, direction == 3 ? 1 : -1) << "from 0 again";
    }
    expectPicture(deck.frame, {"...", "...", "...", "...", "..."});
  }
}

TEST_P(Ticker, AnEmptyTextOnlyMovesThePictureUpAndDown) {
  for (const int direction : {1, 5}) {
    dimension(2, 3);
    ASSERT_TRUE(build("", direction));
    deck.frame = frameOf({"RR", "GG", "YY"});
    ASSERT_TRUE(tick());
    expectPicture(deck.frame,
                  direction == 1 ? Drawing{"GG", "YY", "YY"} : Drawing{"RR", "RR", "GG"});
  }
}

TEST_P(Ticker, AnotherFontRunsAsPlainBackground) {
  dimension(4, 9);
  effect().tickerFont = 7;
  ASSERT_TRUE(build("MM", 3));
  deck.frame.fill({});
  ASSERT_TRUE(tick(4));
  expectPicture(deck.frame,
                {"BBBB", "BBBB", "BBBB", "BBBB", "BBBB", "BBBB", "BBBB", "....", "...."});
}

TEST_P(Ticker, CellsBeyondTheRightOrLowerEdgeAreLeftOut) {
  dimension(3, 4);
  ASSERT_TRUE(build("M", 1) && tick(4));
  expectPicture(deck.frame, {"WBB",  // a grid narrower than the letter
                             "WWB",  //
                             "WBW",  //
                             "WBB"});
  place(2, 0);
  ASSERT_TRUE(build("M", 1) && tick(4));
  expectPicture(deck.frame, {"BBW", "BBW", "BBW", "BBW"});
  place(0, 2);
  ASSERT_TRUE(build("L", 3) && tick(3));
  expectPicture(deck.frame, {"BBB", "BBB", "WBB", "WBB"});
}

TEST_P(Ticker, TheOffsetIsAShareOfTheFreeRoom) {
  dimension(12, 12);
  ASSERT_TRUE(build("L", 3));
  place(4, 4);
  ASSERT_TRUE(offset(100));
  EXPECT_EQ(deck.imagePosY, 8) << "the bottom row of the letters is cut off";
  EXPECT_EQ(deck.imagePosX, 0);
  ASSERT_TRUE(offset(99));
  EXPECT_EQ(deck.imagePosY, 7) << "the lowest place that fits";
  ASSERT_TRUE(offset(0));
  EXPECT_EQ(deck.imagePosY, 0);
  ASSERT_TRUE(build("L", 1));
  place(4, 4);
  ASSERT_TRUE(offset(50));
  EXPECT_EQ(deck.imagePosX, 5) << "half of ten";
  EXPECT_EQ(deck.imagePosY, 0);
}

TEST_P(Ticker, AtFullOffsetTheBottomRowOfTheTextIsCutOff) {
  dimension(3, 12);
  ASSERT_TRUE(build("L", 3) && offset(100) && build("L", 3) && tick(3));
  expectPicture(Picture(deck.frame).cut(0, 7, 3, 5), {"BBB",  //
                                                      "WBB",  //
                                                      "WBB",  //
                                                      "WBB",  //
                                                      "WBB"});
}

TEST_P(Ticker, WithoutRoomTheOffsetIsZero) {
  dimension(4, 5);
  ASSERT_TRUE(build("M", 1));
  place(3, 3);
  ASSERT_TRUE(offset(100));
  EXPECT_EQ(deck.imagePosX, 0);
  effect().direction = 3;
  place(3, 3);
  ASSERT_TRUE(offset(100));
  EXPECT_EQ(deck.imagePosY, 0);
}

TEST_P(Ticker, AnotherFontOrDirectionStaysWhereItWas) {
  ASSERT_TRUE(build("L", 3));
  for (const auto& [font, direction] : {std::pair(7, 3), std::pair(5, 4)}) {
    effect().tickerFont = static_cast<std::int16_t>(font);
    effect().direction = static_cast<std::int16_t>(direction);
    place(3, 2);
    ASSERT_TRUE(offset(80));
    EXPECT_EQ(deck.imagePosX, 3);
    EXPECT_EQ(deck.imagePosY, 2);
  }
}

TEST_P(Ticker, ALetterStandsInTheMiddleOfTheRows) {
  dimension(12, 12);
  ASSERT_TRUE(build("L", 1));
  effect().tickerLetter = 1;
  ASSERT_TRUE(offset(100));
  EXPECT_EQ(deck.imagePosX, 10);
  EXPECT_EQ(deck.imagePosY, 3);
  effect().tickerFont = 15;
  ASSERT_TRUE(offset(0));
  EXPECT_EQ(deck.imagePosX, 0);
  EXPECT_EQ(deck.imagePosY, -1) << "truncated towards zero";
}

TEST_P(Ticker, TheOffsetIsReckonedWithTheWidthOfTheLastBuild) {
  dimension(12, 12);
  ASSERT_TRUE(build("L", 1));
  effect().tickerText = "M";
  ASSERT_TRUE(offset(100));
  EXPECT_EQ(deck.imagePosX, 10) << "as if the text were still three wide";
}

TEST_P(Ticker, ASelectedRowPlacesRunningTextButNoLetters) {
  ASSERT_TRUE(build("L", 3));
  effect().amount = 99;
  place(1, 1);
  effect().tickerLetter = 1;
  tickerPlace(engine, deck);
  EXPECT_EQ(deck.imagePosY, 1);
  effect().tickerLetter = 0;
  tickerPlace(engine, deck);
  EXPECT_EQ(deck.imagePosY, 7);
  effect().tickerFont = 7;
  place(1, 1);
  tickerPlace(engine, deck);
  EXPECT_EQ(deck.imagePosY, 1);
}

TEST_P(Ticker, TheShareOfAnEnormousRoomOverflows) {
  dimension(335, 12);
  ASSERT_TRUE(build("L", 1));
  EXPECT_FALSE(offset(100));  // 333 x 100
  EXPECT_EQ(takeFailure(), kOverflow);
  EXPECT_TRUE(offset(98));
}

TEST_P(Ticker, ABuildClearsThePictureAndRestartsThePass) {
  dimension(4, 5);
  ASSERT_TRUE(build("L", 3) && tick(2));
  deck.timer1.disable();
  ASSERT_TRUE(build("L", 3));
  EXPECT_EQ(deck.step, 0);
  EXPECT_TRUE(deck.timer1.enabled());
  expectPicture(deck.frame, {"BBBB", "BBBB", "BBBB", "BBBB", "BBBB"});
  expectPicture(v.frameM, {"BBBB", "BBBB", "BBBB", "BBBB", "BBBB"});
}

TEST_P(Ticker, ABuildLeavesABeatDrivenTextToTheBeat) {
  effect().beatControl = 3;  // any number but 0
  deck.timer1.enable();
  ASSERT_TRUE(build("L", 3));
  EXPECT_FALSE(deck.timer1.enabled());
}

TEST_P(Ticker, AFadeStopsTheMixButNotThePreview) {
  dimension(3, 5);
  v.fadeRunning = true;
  takeCalls();
  ASSERT_TRUE(build("L", 3) && tick());
  EXPECT_TRUE(takeCalls().empty());
  expectPicture(v.frameM, {"...", "...", "...", "...", "..."});
  EXPECT_EQ(pixelOf(deck.picture, deck.preview, 2, 1), kWhite);
  EXPECT_EQ(pixelOf(deck.picture, deck.preview, 0, 1), kBlue);
}

// A build clears the frame, not what was noted: a cell that gets the colour noted of it is neither
// drawn nor mixed.
TEST_P(Ticker, CellsThatEqualWhatWasNotedAreNotToldAgain) {
  dimension(1, 5);
  ASSERT_TRUE(build("l", 3) && tick());
  takeCalls();
  ASSERT_TRUE(build("l", 3));
  EXPECT_EQ(takeCalls().size(), 11U) << "one pass, and two components of each of five cells";
  ASSERT_TRUE(tick());
  EXPECT_TRUE(takeCalls().empty());
  EXPECT_EQ(deck.frame.at(0, 2), (Rgb{255, 255, 255}));
  EXPECT_EQ(v.frameM.at(0, 2), (Rgb{0, 0, 255}));
}

}  // namespace
}  // namespace korvane
