#include "generators/Effects.h"
#include "playback/EffectStart.h"
#include "testing/TestPlugin.h"

namespace korvane {
namespace {

using Texts = std::vector<std::string>;

class EffectTypes : public TestDecks {
 protected:
  void SetUp() override { ASSERT_TRUE(open()); }
};
KORVANE_BOTH_DECKS(EffectTypes);

// What a record that held something else in every field has after it became of another type.
TEST_P(EffectTypes, ATypeSetsItsDefaultsAndNoOtherField) {
  struct Defaults {
    EffectType type;
    Color color1, color2;
    int direction, speed, amount;
    std::string text;
  };
  constexpr Color kOld = 0x010203;
  const Color red = rgb(255, 0, 0), yellow = rgb(255, 255, 0), blue = rgb(0, 0, 255),
              white = rgb(255, 255, 255);
  const std::vector<Defaults> rows = {
      {kGradient, red, yellow, 7, 1, 2, "old"},
      {kColor, deck.isB() ? blue : red, kOld, 3, 1, 2, "old"},
      {kPaint, kOld, kOld, 3, 1, 2, "old"},
      {kImage, kOld, kOld, 3, 1, 2, "old"},
      {kColorChange, kOld, kOld, 3, 30, 2, "old"},
      {kColorScroll, kOld, kOld, 3, 1, 2, "old"},
      {kFire, yellow, red, 3, 80, 30, "old"},
      {kFluid, blue, white, 5, 80, 40, "old"},
      {kTicker, white, 0, 3, 75, 2, "Korvane - TharnDesk - "},
  };
  for (const Defaults& row : rows) {
    Effect& effect = deck.effect();
    effect.color1 = effect.color2 = kOld;
    effect.direction = 3;
    effect.speed = 1;
    effect.amount = 2;
    effect.tickerText = "old";
    choose(deck.type, row.type);
    const char* name = kindOf(row.type)->name;
    EXPECT_EQ(effect.type, row.type) << name;
    EXPECT_EQ(effect.color1, row.color1) << name;
    EXPECT_EQ(effect.color2, row.color2) << name;
    EXPECT_EQ(effect.direction, row.direction) << name;
    EXPECT_EQ(effect.speed, row.speed) << name;
    EXPECT_EQ(effect.amount, row.amount) << name;
    EXPECT_EQ(effect.tickerText, row.text) << name;
  }
  EXPECT_EQ(deck.effect().tickerFont, 5);
}

TEST_P(EffectTypes, ATypeThatTheRecordHasAlreadyKeepsItsFields) {
  click(panel.add);
  deck.efx[1].type = kFire;
  deck.efx[1].speed = 11;
  deck.efx[1].color1 = rgb(1, 2, 3);
  pick(deck.efxList, 1);  // the type list changes, and with it its handler runs
  EXPECT_EQ(deck.type.index(), kFire);
  EXPECT_EQ(deck.efx[1].speed, 11);
  EXPECT_EQ(deck.efx[1].color1, rgb(1, 2, 3));
}

TEST_P(EffectTypes, ColorChangeGetsSpeedThirtyAndKeepsItsAmount) {
  deck.efx[0].amount = 77;
  choose(deck.type, kColorChange);
  EXPECT_EQ(deck.efx[0].speed, 30);
  EXPECT_EQ(deck.efx[0].amount, 77);
}

TEST_P(EffectTypes, ChoosingPaintKeepsAStillOfWhatTheDeckShowed) {
  deck.frame.at(3, 4) = {10, 20, 30};
  choose(deck.type, kPaint);
  EXPECT_EQ(deck.efx[0].paintPixels.at(3, 4), rgb(10, 20, 30));
  EXPECT_EQ(deck.frame.at(3, 4), (Rgb{10, 20, 30}));
}

TEST_P(EffectTypes, ATypeThatDoesNotExistIsReportedInWords) {
  deck.efx[0].type = 99;
  EXPECT_TRUE(pick(deck.efxList, 0));
  EXPECT_EQ(takeBoxes(), Texts{"Wert nicht erlaubt"});
}

TEST_P(EffectTypes, ChoosingTheSameTypeAgainStartsItAnewAndKeepsItsFields) {
  deck.effect().color1 = rgb(1, 2, 3);
  deck.timer1.enable();
  choose(deck.type, kColor);
  EXPECT_FALSE(deck.timer1.enabled());
  EXPECT_EQ(deck.effect().color1, rgb(1, 2, 3));
  EXPECT_EQ(rgb(deck.frame.at(0, 0)), rgb(1, 2, 3));
}

TEST_P(EffectTypes, ShowingTheSameTypeAgainIsNoEvent) {
  deck.timer1.enable();
  event([this] { deck.type.setIndex(kColor); });
  EXPECT_TRUE(deck.timer1.enabled());
}

TEST_P(EffectTypes, OnlyTheLeftTypeListClearsTheBeatOfAnUnconfiguredScroll) {
  deck.beatOn = true;
  choose(deck.type, kColorScroll);
  EXPECT_EQ(takeBoxes(), Texts{"ColorScroll not configured ! Please edit effect !"});
  EXPECT_EQ(static_cast<bool>(deck.beatOn), deck.isB());
  EXPECT_FALSE(deck.timer1.enabled());
}

TEST_P(EffectTypes, OnlyTheLeftTypeListClearsTheBeatOfAScrollWithoutBeat) {
  deck.efx[0].colorCount = 2;
  deck.efx[0].colors = {1, 2, 0};
  deck.efx[0].itemWidths = {1, 1, 0};
  deck.beatOn = true;
  choose(deck.type, kColorScroll);
  EXPECT_EQ(static_cast<bool>(deck.beatOn), deck.isB());
  EXPECT_TRUE(deck.timer1.enabled());
  pick(deck.efxList, 0);
  EXPECT_FALSE(deck.beatOn);
}

TEST_P(EffectTypes, OnlyTheRightTypeListMakesRoomForAllWidths) {
  deck.efx[0].colorCount = 2;
  deck.efx[0].colors = {1, 2, 0};
  deck.efx[0].itemWidths = {1, 1};
  choose(deck.type, kColorScroll);
  EXPECT_EQ(deck.efx[0].itemWidths.size(), deck.isB() ? 3U : 2U);
}

TEST_P(EffectTypes, OnlyTheLeftListSetsTheStepIntervalOfAnImageFirst) {
  choose(deck.type, kImage);
  deck.efx[0].speed = 100;
  deck.timer1.setInterval(777);
  pick(deck.efxList, 0);
  EXPECT_EQ(deck.timer1.interval(), deck.isB() ? 777 : 50);
}

TEST_P(EffectTypes, OnlyTheLeftTypeListLeavesLetterMode) {
  deck.efx[0].tickerLetter = 1;
  choose(deck.type, kTicker);
  EXPECT_EQ(deck.efx[0].tickerLetter, deck.isB() ? 1 : 0);
}

TEST_P(EffectTypes, ANewTickerFollowsTheTimerForwardAndPlain) {
  Effect& effect = deck.effect();
  effect.beatControl = effect.tickerBackward = effect.tickerMirror = 1;
  choose(deck.type, kTicker);
  EXPECT_EQ(effect.beatControl, 0);
  EXPECT_EQ(effect.tickerBackward, 0);
  EXPECT_EQ(effect.tickerMirror, 0);
  EXPECT_FALSE(deck.beatOn);
}

}  // namespace
}  // namespace korvane
