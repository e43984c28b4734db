#include "generators/colorscroll/ColorScrollCode.h"

#include <gtest/gtest.h>

#include "platform/Failure.h"
#include "testing/ColorEffects.h"

namespace korvane {
namespace {

constexpr Rgb kRedCell = {255, 0, 0};
constexpr Rgb kBlueCell = {0, 0, 255};
constexpr Rgb kBetween = {128, 0, 128};

class ColorScroll : public ColorEffectsOnDecks<kColorScroll> {
 protected:
  void setBands(const std::vector<Color>& colors, const std::vector<std::int32_t>& widths) {
    setColors(colors, {}, widths);
  }

  // A grid that shows a picture, and a strip of red, green, blue.
  void setPicture(int direction, const Drawing& picture) {
    resize(static_cast<int>(picture[0].size()), static_cast<int>(picture.size()));
    deck.frame = frameOf(picture);
    setBands({kRed, kGreen, kBlue}, {1, 1, 1});
    effect.direction = static_cast<std::int16_t>(direction);
    deck.colorIndex = 0;
    deck.step = 0;
    buildScrollStrip(engine, deck);
  }

  void tick(int count = 1) {
    for (int i = 0; i < count; ++i) tickColorScroll(engine, deck);
  }

  int failureOfBuild() {
    platform.failures.clear();
    event([this] { buildScrollStrip(engine, deck); });
    return platform.failures.empty() ? 0 : platform.failures[0].number;
  }
};

KORVANE_BOTH_DECKS(ColorScroll);

// The strip.

TEST_P(ColorScroll, HardBandsFillTheStripInOrder) {
  setBands({kRed, kBlue}, {2, 3});
  buildScrollStrip(engine, deck);
  EXPECT_EQ(deck.scrollLength, 5);
  EXPECT_EQ(deck.scrollStrip,
            (std::vector<Rgb>{kRedCell, kRedCell, kBlueCell, kBlueCell, kBlueCell, Rgb{}}));
}

TEST_P(ColorScroll, BlendedBandsOpenWithTheBlendFromTheLastColour) {
  setBands({kRed, kBlue}, {2, 2});
  effect.scrollFadeMode = 1;
  buildScrollStrip(engine, deck);
  EXPECT_EQ(deck.scrollStrip, (std::vector<Rgb>{kBetween, kRedCell, kBetween, kBlueCell, Rgb{}}));
}

TEST_P(ColorScroll, ABlendRoundsTiesToEven) {
  setBands({rgb(0, 0, 1), rgb(1, 3, 1)}, {2, 2});
  effect.scrollFadeMode = -1;
  buildScrollStrip(engine, deck);
  EXPECT_EQ(deck.scrollStrip[2], (Rgb{0, 2, 1}));
}

TEST_P(ColorScroll, ABandOfWidth1IsNotBlended) {
  setBands({kRed, kBlue}, {1, 1});
  effect.scrollFadeMode = 1;
  buildScrollStrip(engine, deck);
  EXPECT_EQ(deck.scrollStrip, (std::vector<Rgb>{kRedCell, kBlueCell, Rgb{}}));
}

TEST_P(ColorScroll, OnlyBlendedBandsUseColor2AsScratch) {
  setBands({kRed, kBlue}, {1, 1});
  effect.color2 = kGreen;
  buildScrollStrip(engine, deck);
  EXPECT_EQ(effect.color2, kGreen);
  effect.scrollFadeMode = 1;
  buildScrollStrip(engine, deck);
  EXPECT_EQ(effect.color2, kBlue);
}

TEST_P(ColorScroll, AWidthOf0LeavesAColourOutButNotOutOfTheBlend) {
  setBands({kRed, kGreen, kBlue}, {1, 0, 2});
  buildScrollStrip(engine, deck);
  EXPECT_EQ(deck.scrollStrip, (std::vector<Rgb>{kRedCell, kBlueCell, kBlueCell, Rgb{}}));
  effect.scrollFadeMode = 1;
  buildScrollStrip(engine, deck);
  EXPECT_EQ(deck.scrollStrip[1], (Rgb{0, 128, 128})) << "from green, whose band has no width";
}

TEST_P(ColorScroll, WithFewerThan2ColoursTheTimerStopsAndTheStripStays) {
  setBands({kRed, kBlue}, {1, 1});
  buildScrollStrip(engine, deck);
  setBands({kGreen}, {7});
  deck.timer1.enable();
  buildScrollStrip(engine, deck);
  EXPECT_FALSE(deck.timer1.enabled());
  EXPECT_EQ(deck.scrollLength, 2);
  EXPECT_EQ(deck.scrollStrip[0], kRedCell);
}

TEST_P(ColorScroll, TheBuilderLeavesTheFrameAlone) {
  setPicture(1, {"WGB", "..R"});
  expectPicture(deck.frame, {"WGB", "..R"});
}

TEST_P(ColorScroll, WidthsOf32767FitAndOneMoreOverflows) {
  setBands({kRed, kBlue}, {32000, 767});
  EXPECT_EQ(failureOfBuild(), 0);
  EXPECT_EQ(deck.scrollLength, 32767);
  EXPECT_EQ(deck.scrollStrip.size(), 32768U);
  setBands({kRed, kBlue}, {32000, 768});
  EXPECT_EQ(failureOfBuild(), kOverflow);
  EXPECT_EQ(deck.scrollLength, 32767) << "the strip stays as it was";
}

TEST_P(ColorScroll, WidthsThatAFileMadeAbsurdFailAndHarmNothing) {
  setBands({kRed, kBlue}, {1, 1});
  ASSERT_EQ(failureOfBuild(), 0);
  setBands({kRed, kBlue}, {2147483647, 1});
  EXPECT_EQ(failureOfBuild(), kOverflow);
  setBands({kRed, kBlue}, {-5, 2});
  EXPECT_EQ(failureOfBuild(), kSubscript);
  setBands({kRed, kBlue}, {5, -3});
  EXPECT_EQ(failureOfBuild(), kSubscript) << "the strip has 2 entries for a band of 5";
  setBands({kRed, kBlue}, {1, 1});
  effect.itemWidths.resize(1);
  EXPECT_EQ(failureOfBuild(), kSubscript);
}

// The ticks.

TEST_P(ColorScroll, TheStripWrapsAfterItsLastEntry) {
  resize(1, 1);
  setBands({kRed, kBlue}, {2, 3});
  effect.direction = 1;
  deck.colorIndex = 0;
  buildScrollStrip(engine, deck);
  std::vector<Rgb> seen;
  for (int i = 0; i < 7; ++i) {
    tick();
    seen.push_back(deck.frame.at(0, 0));
    EXPECT_EQ(deck.colorIndex, (i + 1) % 5);
  }
  expectPicture(seen, {"RRBBBRR"});
}

TEST_P(ColorScroll, Direction1Up) {
  setPicture(1, {"WWW", "BBB", "..."});
  tick();
  expectPicture(deck.frame, {"BBB", "...", "RRR"});
  tick();
  expectPicture(deck.frame, {"...", "RRR", "GGG"});
}

TEST_P(ColorScroll, Direction2UpLeftSpreadsFromTheBottomRightCell) {
  setPicture(2, {"...", "...", "WWW"});
  tick();
  expectPicture(deck.frame, {"...", "WWW", "WWR"});
  EXPECT_EQ(deck.step, 1);
  tick();
  expectPicture(deck.frame, {"WWW", "WWR", "WRG"});
  tick();
  expectPicture(deck.frame, {"WWR", "WRG", "RGB"});
  EXPECT_EQ(deck.step, 2);
  tick();
  expectPicture(deck.frame, {"WRG", "RGB", "GBR"});
  EXPECT_EQ(deck.step, 2);
}

TEST_P(ColorScroll, Direction3Left) {
  setPicture(3, {"WB.", "WB."});
  tick();
  expectPicture(deck.frame, {"B.R", "B.R"});
  tick();
  expectPicture(deck.frame, {".RG", ".RG"});
}

TEST_P(ColorScroll, Direction4DownLeftSpreadsFromTheTopRightCell) {
  setPicture(4, {"WWW", "...", "..."});
  tick();
  expectPicture(deck.frame, {"WWR", "WWW", "..."});
  tick();
  expectPicture(deck.frame, {"WRG", "WWR", "WWW"});
  tick(2);
  expectPicture(deck.frame, {"GBR", "RGB", "WRG"});
}

TEST_P(ColorScroll, Direction5Down) {
  setPicture(5, {"WWW", "BBB", "..."});
  tick();
  expectPicture(deck.frame, {"RRR", "WWW", "BBB"});
  tick();
  expectPicture(deck.frame, {"GGG", "RRR", "WWW"});
}

TEST_P(ColorScroll, Direction6DownRightSpreadsFromTheTopLeftCell) {
  setPicture(6, {"WWW", "...", "..."});
  tick();
  expectPicture(deck.frame, {"RWW", "WWW", "..."});
  tick();
  expectPicture(deck.frame, {"GRW", "RWW", "WWW"});
  tick(2);
  expectPicture(deck.frame, {"RBG", "BGR", "GRW"});
}

TEST_P(ColorScroll, Direction7Right) {
  setPicture(7, {"WB.", "WB."});
  tick();
  expectPicture(deck.frame, {"RWB", "RWB"});
  tick();
  expectPicture(deck.frame, {"GRW", "GRW"});
}

TEST_P(ColorScroll, Direction8UpRightSpreadsFromTheBottomLeftCell) {
  setPicture(8, {"...", "...", "WWW"});
  tick();
  expectPicture(deck.frame, {"...", "WWW", "RWW"});
  tick(2);
  expectPicture(deck.frame, {"RWW", "GRW", "BGR"});
}

TEST_P(ColorScroll, Direction9ColumnsInwardOnAnEvenSide) {
  setPicture(9, {"WB.G"});
  tick();
  expectPicture(deck.frame, {"RWGR"});
  tick();
  expectPicture(deck.frame, {"GRRG"});
}

TEST_P(ColorScroll, Direction9OnAnOddSideTheRightNeighbourWinsTheCentre) {
  setPicture(9, {"WB.GR"});
  tick();
  expectPicture(deck.frame, {"RWGRR"});
}

TEST_P(ColorScroll, Direction10ColumnsOutwardWritesTwoColumnsOnAnEvenSide) {
  setPicture(10, {"WB.G"});
  tick();
  expectPicture(deck.frame, {"BRR."});
}

TEST_P(ColorScroll, Direction10ColumnsOutwardWritesOneColumnOnAnOddSide) {
  setPicture(10, {"WB.GB"});
  tick();
  expectPicture(deck.frame, {"B.R.G"});
  tick();
  expectPicture(deck.frame, {".RGR."});
}

TEST_P(ColorScroll, Direction11RowsInwardTheLowerNeighbourWinsTheCentre) {
  setPicture(11, {"W", "B", ".", "G", "B"});
  tick();
  expectPicture(deck.frame, {"R", "W", "G", "B", "R"});
}

TEST_P(ColorScroll, Direction12RowsOutward) {
  setPicture(12, {"W", "B", ".", "G", "B"});
  tick();
  expectPicture(deck.frame, {"B", ".", "R", ".", "G"});
  setPicture(12, {"W", "B", ".", "G"});
  tick();
  expectPicture(deck.frame, {"B", "R", "R", "."});
}

TEST_P(ColorScroll, EveryDirectionFillsASingleCell) {
  for (int direction = 1; direction <= 12; ++direction) {
    setPicture(direction, {"W"});
    tick();
    expectPicture(deck.frame, {"R"});
  }
}

TEST_P(ColorScroll, AnyOtherDirectionMovesNothingAndStillAdvances) {
  for (const int direction : {0, -1, 13, 32767}) {
    setPicture(direction, {"WB", ".G"});
    v.masterValue = isB() ? 1 : 0;
    tick();
    expectPicture(deck.frame, {"WB", ".G"});
    expectPicture(v.frameM, {"WB", ".G"});
    EXPECT_EQ(deck.colorIndex, 1);
  }
}

TEST_P(ColorScroll, ADiagonalOn2RowsWritesTheWholeNewRowOnceEveryColumnHasCome) {
  setPicture(2, {"....", "...."});
  tick(4);
  expectPicture(deck.frame, {".RGB", "RGBR"});
  tick();
  expectPicture(deck.frame, {"RGBR", "GBRG"});
}

TEST_P(ColorScroll, ADiagonalWindowLeftTooWideByAnotherEffectFails) {
  setPicture(2, {"...", "..."});
  deck.step = 3;
  event([this] { tick(); });
  ASSERT_EQ(platform.failures.size(), 1U);
  EXPECT_EQ(platform.failures[0].number, kSubscript);
  EXPECT_EQ(deck.colorIndex, 0);
}

TEST_P(ColorScroll, ATickPublishesItsFrameUnlessAFadeRuns) {
  setPicture(5, {"..", ".."});
  v.masterValue = isB() ? 1 : 0;
  tick();
  expectPicture(v.frameM, {"RR", ".."});
  v.fadeRunning = true;
  engine.master.timerM.setInterval(5000);
  tick();
  expectPicture(deck.frame, {"GG", "RR"});
  expectPicture(v.frameM, {"RR", ".."});
}

// Start and timer.

struct SpeedRow {
  std::int16_t speed;
  std::int32_t interval;
};

TEST_P(ColorScroll, TheIntervalFallsFrom8050To50Milliseconds) {
  for (const SpeedRow& row : {SpeedRow{100, 50}, SpeedRow{99, 51}, SpeedRow{75, 550},
                              SpeedRow{50, 2050}, SpeedRow{1, 7891}, SpeedRow{0, 8050}}) {
    setBands({kRed, kBlue}, {1, 1});
    effect.speed = row.speed;
    start();
    EXPECT_EQ(deck.timer1.interval(), row.interval);
  }
}

TEST_P(ColorScroll, StepsToTheMillisecondAndKeepsItsInterval) {
  resize(1, 1);
  setBands({kRed, kBlue}, {1, 1});
  effect.direction = 3;
  effect.speed = 100;
  start();
  advance(49);
  EXPECT_EQ(deck.colorIndex, 0);
  advance(1);
  expectPicture(deck.frame, {"R"});
  advance(49);
  expectPicture(deck.frame, {"R"});
  advance(1);
  expectPicture(deck.frame, {"B"});
  EXPECT_EQ(deck.timer1.interval(), 50);
}

TEST_P(ColorScroll, AnUnconfiguredEffectSaysSoAndRunsNoTimer) {
  setBands({kRed}, {1});
  start();
  ASSERT_FALSE(platform.boxes.empty());
  EXPECT_EQ(platform.boxes.back(), "ColorScroll not configured ! Please edit effect !");
  EXPECT_FALSE(deck.timer1.enabled());
}

TEST_P(ColorScroll, AStartLeavesThePictureAndResetsTheWindow) {
  resize(3, 1);
  setBands({kRed, kBlue}, {1, 1});
  effect.direction = 2;
  deck.step = 2;
  deck.colorIndex = 1;
  deck.frame = frameOf({"WGB"});
  start();
  expectPicture(deck.frame, {"WGB"});
  EXPECT_EQ(deck.step, 0);
  EXPECT_EQ(deck.colorIndex, 0);
}

}  // namespace
}  // namespace korvane
