#include "generators/colorchange/ColorChangeCode.h"

#include <gtest/gtest.h>

#include "generators/kit/StepCurves.h"
#include "platform/Failure.h"
#include "testing/ColorEffects.h"

namespace korvane {
namespace {

class ColorChange : public ColorChanges {};

KORVANE_BOTH_DECKS(ColorChange);

struct Hold {
  double seconds;
  std::int16_t speed;
  std::int32_t milliseconds;
};

TEST(ColorHoldInterval, IsThreeTimesTheTimeAtSpeed0AndAThirdAt100) {
  for (const Hold& hold : {
           Hold{1, 0, 3000},
           Hold{1, 25, 2000},
           Hold{1, 49, 1040},
           Hold{1, 50, 1000},
           Hold{1, 51, 962},
           Hold{1, 75, 500},
           Hold{1, 100, 333},
           Hold{0.1, 100, 33},
           Hold{800, 0, 2400000},
           Hold{0, 50, 0},
           Hold{0.0005, 50, 0},
           Hold{0.0015, 50, 2},
           Hold{0.0025, 50, 2},
           Hold{-1, 50, -1000},
           Hold{2147483.647, 50, 2147483647},
           Hold{3, 100, 1000},
       }) {
    EXPECT_EQ(colorHoldInterval(hold.seconds, hold.speed), hold.milliseconds)
        << hold.seconds << " s at speed " << hold.speed;
  }
}

TEST(ColorHoldInterval, OverflowsBeyond32Bits) {
  EXPECT_THROW(colorHoldInterval(2147483.648, 50), Failure);
  EXPECT_EQ(colorHoldInterval(2147483.648, 51), 2064888123);
}

TEST_P(ColorChange, WithoutAColourClearsRedAloneAndSaysSo) {
  resize(2, 2);
  effect.type = kColorChange;
  deck.frame.fill({1, 2, 3});
  v.frameM.fill({9, 9, 9});
  const Raster preview = deck.picture.raster();
  deck.timer1.enable();
  deck.timer2.enable();
  startColorChange(engine, deck);
  EXPECT_EQ(deck.frame.at(0, 0), (Rgb{0, 2, 3}));
  EXPECT_EQ(deck.frame.at(1, 1), (Rgb{0, 2, 3}));
  EXPECT_EQ(deck.picture.raster(), preview) << "no preview is refreshed";
  EXPECT_EQ(v.frameM.at(0, 0), (Rgb{9, 9, 9}));
  EXPECT_EQ(platform.boxes,
            std::vector<std::string>{"ColorChange not configured ! Please edit Effect."});
  EXPECT_FALSE(deck.timer1.enabled());
  EXPECT_FALSE(deck.timer2.enabled());
}

TEST_P(ColorChange, OneColourIsStaticAndRunsNoTimer) {
  resize(2, 1);
  play({kGreen}, {1});
  expectPicture(deck.frame, {"GG"});
  EXPECT_FALSE(deck.timer1.enabled());
  EXPECT_FALSE(deck.timer2.enabled());
  EXPECT_TRUE(platform.failures.empty());
}

TEST_P(ColorChange, HoldsEachColourForItsTimeToTheMillisecondAndWraps) {
  resize(1, 1);
  play({kRed, kGreen}, {1, 2});
  for (int round = 0; round < 3; ++round) {
    expectPicture(deck.frame, {"R"});
    advance(999);
    expectPicture(deck.frame, {"R"});
    advance(1);
    expectPicture(deck.frame, {"G"});
    EXPECT_EQ(deck.colorIndex, 1);
    advance(1999);
    expectPicture(deck.frame, {"G"});
    advance(1);
    EXPECT_EQ(deck.colorIndex, 0);
  }
}

TEST_P(ColorChange, NotesTheColourBeforeInColor2) {
  play({kRed, kGreen, kBlue}, {1, 1, 1});
  EXPECT_EQ(effect.color1, kRed);
  advance(1000);
  EXPECT_EQ(effect.color2, kRed);
  EXPECT_EQ(effect.color1, kGreen);
  advance(2000);
  EXPECT_EQ(effect.color2, kBlue);
  EXPECT_EQ(effect.color1, kRed);
}

TEST_P(ColorChange, AnUnsetSpeedBecomes50) {
  play({kRed, kGreen}, {1, 1});
  effect.speed = 0;
  start();
  EXPECT_EQ(effect.speed, 50);
  EXPECT_EQ(deck.timer1.interval(), 1000);
}

TEST_P(ColorChange, AnUnsetSpeedOfAStaticColourStaysUnset) {
  play({kRed}, {1});
  effect.speed = 0;
  start();
  EXPECT_EQ(effect.speed, 0);
}

TEST_P(ColorChange, DeckBStretchesItsFirstIntervalAtHighSpeeds) {
  effect.speed = 100;
  play({kRed, kGreen}, {1, 2});
  EXPECT_EQ(deck.timer1.interval(), isB() ? 3000 : 333);
  advance(deck.timer1.interval());
  EXPECT_EQ(deck.timer1.interval(), 667);
  advance(667);
  EXPECT_EQ(deck.timer1.interval(), 333);
}

TEST_P(ColorChange, FirstIntervalsOfTheDecksAgreeUpToSpeed50) {
  for (const auto& [speed, interval] :
       {std::pair(1, 2960), std::pair(25, 2000), std::pair(50, 1000)}) {
    effect.speed = static_cast<std::int16_t>(speed);
    play({kRed, kGreen}, {1, 1});
    EXPECT_EQ(deck.timer1.interval(), interval);
  }
}

TEST_P(ColorChange, OnTheBeatDeckBStartsItsTimerAllTheSame) {
  effect.beatControl = 1;
  play({kRed, kGreen}, {1, 1});
  EXPECT_EQ(deck.timer1.enabled(), isB());
}

TEST_P(ColorChange, ATimeOf0StopsTheTicking) {
  play({kRed, kGreen, kBlue}, {1, 0, 1});
  advance(1000);
  EXPECT_EQ(deck.colorIndex, 1);
  EXPECT_TRUE(deck.timer1.enabled());
  EXPECT_EQ(deck.timer1.interval(), 0);
  advance(1'000'000);
  EXPECT_EQ(deck.colorIndex, 1);
}

TEST_P(ColorChange, MissingTimesFailAndLeaveTheColourShowing) {
  resize(1, 1);
  play({kRed, kGreen}, {1, 1});
  effect.itemTimes.clear();
  advance(1000);
  ASSERT_EQ(platform.failures.size(), 1U);
  EXPECT_EQ(platform.failures[0].number, kSubscript);
  EXPECT_FALSE(deck.timer1.enabled());
  expectPicture(deck.frame, {"R"});
}

}  // namespace
}  // namespace korvane
