#include "generators/ticker/TickerCode.h"
#include "testing/Drawing.h"
#include "testing/TickerEffect.h"

namespace korvane {
namespace {

class TickerLetters : public TickerEffect {
 protected:
  void SetUp() override {
    TickerEffect::SetUp();
    effect().tickerLetter = 1;
  }
};
KORVANE_BOTH_DECKS(TickerLetters);

TEST_P(TickerLetters, ShowOneLetterAtATime) {
  dimension(7, 8);
  ASSERT_TRUE(build("MW", 1) && offset(50) && tick());
  expectPicture(deck.frame, {"BBBBBBB",  //
                             "BWBBBWB",  //
                             "BWWBWWB",  //
                             "BWBWBWB",  //
                             "BWBBBWB",  //
                             "BWBBBWB",  //
                             "BBBBBBB",  //
                             "BBBBBBB"});
  ASSERT_TRUE(tick());
  expectPicture(deck.frame, {"BBBBBBB",  //
                             "BWBBBWB",  //
                             "BWBWBWB",  //
                             "BWBWBWB",  //
                             "BWBWBWB",  //
                             "BBWBWBB",  //
                             "BBBBBBB",  //
                             "BBBBBBB"});
  EXPECT_EQ(deck.step, 0) << "and from the start";
}

TEST_P(TickerLetters, DriftOverTheBoundariesOfNarrowLettersAndFailPastTheEndOfTheStrip) {
  dimension(4, 6);
  ASSERT_TRUE(build("AB", 1) && tick(2));
  expectPicture(deck.frame, {"BBBB",  // the spacing row of the A
                             "WWWB",  //
                             "WBBW",  //
                             "WWWB",  //
                             "WBBW",  //
                             "WWWB"});
  EXPECT_EQ(deck.step, 10);
  EXPECT_FALSE(tick());
  EXPECT_EQ(takeFailure(), kSubscript);
  EXPECT_EQ(deck.step, 10);
}

TEST_P(TickerLetters, FailOnThreeRowsOrFewer) {
  for (const int rows : {1, 2, 3, 4}) {
    dimension(12, rows);
    ASSERT_TRUE(build("M", 1) && offset(0));
    EXPECT_EQ(tick(), rows > 3) << rows << " rows";
    EXPECT_EQ(takeFailure(), rows > 3 ? 0 : kSubscript);
  }
}

TEST_P(TickerLetters, FailOnAHorizontalStrip) {
  for (const int direction : {3, 7}) {
    dimension(12, 12);
    ASSERT_TRUE(build("MW", direction) && offset(0) && tick());
    EXPECT_FALSE(tick());
    EXPECT_EQ(takeFailure(), kSubscript);
  }
}

TEST_P(TickerLetters, ThatFailStopTheirOwnTimerOnly) {
  dimension(12, 3);
  other.effect().type = kFluid;
  other.effect().direction = 5;
  for (Deck* each : {&deck, &other}) each->timer1.setInterval(50);
  ASSERT_TRUE(build("M", 1) && offset(0));
  other.timer1.enable();
  advance(1000);
  EXPECT_EQ(platform.failures.size(), 1U);
  EXPECT_FALSE(deck.timer1.enabled());
  EXPECT_TRUE(other.timer1.enabled());
}

TEST_P(TickerLetters, WrapFromBelowToTheLastLetter) {
  ASSERT_TRUE(build("MW", 1) && offset(0));
  deck.step = -7;
  EXPECT_FALSE(tick()) << "row -7 of the strip";
  takeFailure();
  effect().tickerFont = -1;  // no row is read then
  ASSERT_TRUE(tick());
  EXPECT_EQ(deck.step, 6);
}

}  // namespace
}  // namespace korvane
