#include "generators/MxColorChange.h"

#include <gtest/gtest.h>

#include "generators/ColorChangeCode.h"
#include "platform/Failure.h"
#include "testing/ColorShow.h"

namespace korvane {
namespace {

using testing::BothDecks;
using testing::deckName;
using testing::kBlue;
using testing::kGreen;
using testing::kRed;

constexpr std::int16_t kFade = 1;
constexpr std::int16_t kScrollDown = 6;

class ColorChangeDialog : public BothDecks {
 protected:
  ColorChangeDialog() {
    effect.type = kColorChange;
    effect.speed = 50;
  }

  void open(const std::vector<Color>& colors, const std::vector<double>& times) {
    setList(effect, colors, times);
    show.start(GetParam());
    ASSERT_TRUE(show.press(show.panel(GetParam()).edit));
    ASSERT_TRUE(dialog.visible());
  }
  static void setList(Effect& effect, const std::vector<Color>& colors,
                      const std::vector<double>& times) {
    effect.colorCount = static_cast<std::int16_t>(colors.size());
    effect.colors = colors;
    effect.itemTimes = times;
    effect.colors.push_back(0);
    effect.itemTimes.push_back(0);
  }
  void set(Slider& slider, int value) {
    show.act([&] { slider.setValue(value); });
  }
  void choose(int mode) {
    show.act([&] { dialog.cbFadeMode.setIndex(mode); });
  }

  MxColorChange& dialog = show.plugin.dialogs.colorChange;
};

KORVANE_BOTH_DECKS(ColorChangeDialog);

TEST_P(ColorChangeDialog, ShowsTheRecord) {
  effect.speed = 33;
  effect.amount = 44;
  effect.fadeMode = 5;
  open({kRed, kGreen}, {1.5, 2});
  EXPECT_EQ(dialog.caption(), "Color Change");
  EXPECT_EQ(dialog.slSpeed.value(), 33);
  EXPECT_EQ(dialog.slFade.value(), 44);
  EXPECT_EQ(dialog.cbFadeMode.text(), "ScrollUp");
  EXPECT_FALSE(dialog.beatControl.checked());
  EXPECT_EQ(dialog.ColorList.cell(0, 1), "1.5");
}

TEST_P(ColorChangeDialog, ListsTheNineFadeModes) {
  EXPECT_EQ(dialog.cbFadeMode.items(),
            (std::vector<std::string>{"None", "Fade", "Random", "FillDown", "FillUp", "ScrollUp",
                                      "ScrollDown", "ScrollLeft", "ScrollRight"}));
}

TEST_P(ColorChangeDialog, SpeedActsOnTheRunningColourAtOnce) {
  open({kRed, kGreen}, {1, 4});
  set(dialog.slSpeed, 75);
  EXPECT_EQ(effect.speed, 75);
  EXPECT_EQ(deck.timer1.interval(), 500);
  show.advance(500);
  set(dialog.slSpeed, 0);
  EXPECT_EQ(deck.timer1.interval(), 12000);
}

TEST_P(ColorChangeDialog, FadeSpeedIsStoredForTheNextTransition) {
  open({kRed, kGreen}, {1, 1});
  set(dialog.slFade, 60);
  EXPECT_EQ(effect.amount, 60);
}

TEST_P(ColorChangeDialog, AListChangeStartsTheTimerEvenOnTheBeat) {
  open({kRed, kGreen}, {1, 2});
  show.press(dialog.beatControl);
  ASSERT_FALSE(deck.timer1.enabled());
  show.act([this] { dialog.updateColorList(); });
  EXPECT_TRUE(deck.timer1.enabled());
}

TEST_P(ColorChangeDialog, AListChangeTakesTheIntervalFromTheSlider) {
  open({kRed, kGreen}, {1, 2});
  set(dialog.slSpeed, 100);
  effect.speed = 50;
  show.act([this] { dialog.updateColorList(); });
  EXPECT_EQ(deck.timer1.interval(), 333);
  EXPECT_EQ(effect.speed, 50);
}

TEST_P(ColorChangeDialog, AListChangeMovesAPositionOfMinus1To0Alone) {
  open({kRed, kGreen}, {1, 2});
  deck.colorIndex = -1;
  show.act([this] { dialog.updateColorList(); });
  EXPECT_EQ(deck.colorIndex, 0);
  deck.colorIndex = 1;
  show.act([this] { dialog.updateColorList(); });
  EXPECT_EQ(deck.colorIndex, 1);
}

TEST_P(ColorChangeDialog, RemovingTheCurrentLastColourTakesTheSpareSlot) {
  open({kRed, kGreen, kBlue}, {1, 2, 3});
  show.act([this] { dialog.ColorList.click(2, 0); });
  show.press(dialog.removeColor);
  EXPECT_EQ(deck.colorIndex, 2);
  EXPECT_EQ(effect.color1, 0);
  EXPECT_EQ(deck.timer1.interval(), 0) << "the spare time; the timer stands until the next change";
}

TEST_P(ColorChangeDialog, AChosenModeWaitsForTheEndOfARunningTransition) {
  effect.amount = 100;
  open({kRed, kGreen}, {1, 1});
  choose(kScrollDown);
  EXPECT_EQ(effect.fadeMode, kScrollDown);
  show.advance(1000);
  ASSERT_TRUE(deck.transitionRunning);
  choose(kFade);
  EXPECT_EQ(effect.fadeMode, kScrollDown);
  EXPECT_EQ(deck.savedFadeMode, kFade);
  show.advance(5 * 250);
  EXPECT_FALSE(deck.transitionRunning);
  EXPECT_EQ(effect.fadeMode, kFade);
}

TEST_P(ColorChangeDialog, BeatControlForcesTheModeToNone) {
  open({kRed, kGreen}, {1, 1});
  choose(kFade);
  show.press(dialog.beatControl);
  EXPECT_EQ(dialog.cbFadeMode.index(), 0);
  EXPECT_EQ(effect.fadeMode, 0);
  EXPECT_EQ(deck.savedFadeMode, 0);
  choose(kScrollDown);
  EXPECT_EQ(dialog.cbFadeMode.index(), 0);
  EXPECT_EQ(effect.fadeMode, 0);
}

TEST_P(ColorChangeDialog, BeatControlDuringATransitionKeepsItsModeAndItsStep) {
  effect.amount = 100;
  open({kRed, kGreen}, {1, 1});
  choose(kScrollDown);
  show.advance(1000 + 2 * 250);
  ASSERT_EQ(deck.step, 2);
  show.press(dialog.beatControl);
  EXPECT_FALSE(deck.timer1.enabled());
  EXPECT_FALSE(deck.timer2.enabled());
  EXPECT_EQ(deck.step, 2);
  EXPECT_EQ(effect.fadeMode, kScrollDown);
  EXPECT_EQ(deck.savedFadeMode, 0);
}

TEST_P(ColorChangeDialog, AModeIsShownThoughTheBoxWasCheckedForTheEffectBefore) {
  open({kRed, kGreen}, {1, 1});
  show.press(dialog.beatControl);
  show.press(dialog.OK);
  effect.beatControl = 0;
  effect.fadeMode = kFade;
  show.press(show.panel(GetParam()).edit);
  EXPECT_FALSE(dialog.beatControl.checked());
  EXPECT_EQ(dialog.cbFadeMode.index(), kFade);
  EXPECT_EQ(effect.fadeMode, kFade);
}

TEST_P(ColorChangeDialog, OKStoresNameAndSpeedAndGoesOnWithTheCurrentColour) {
  show.resize(1, 1);
  open({kRed, kGreen, kBlue}, {1, 2, 3});
  deck.colorIndex = 1;
  deck.timer1.disable();
  show.act([this] { dialog.myName.setText("dawn"); });
  show.press(dialog.OK);
  EXPECT_FALSE(dialog.visible());
  EXPECT_TRUE(deck.efxEdited.at(0));
  EXPECT_EQ(deck.efxList.row(0).text, "dawn");
  EXPECT_EQ(effect.name, "dawn");
  EXPECT_EQ(effect.color1, kGreen);
  EXPECT_EQ(deck.timer1.interval(), 2000);
  EXPECT_TRUE(deck.timer1.enabled());
  testing::expectPicture(deck.frame, {"G"});
}

TEST_P(ColorChangeDialog, OKTakesColor2FromTheNextColourTheSpareSlotOrTheLast) {
  open({kRed, kGreen, kBlue}, {1, 2, 3});
  for (const auto& [index, color2] : {std::pair(0, kBlue), std::pair(1, kBlue), std::pair(2, 0)}) {
    deck.colorIndex = static_cast<std::int16_t>(index);
    effect.color2 = 12345;
    show.act([this] { dialog.OK_Click(); });
    EXPECT_EQ(effect.color2, color2) << "at " << index;
  }
}

TEST_P(ColorChangeDialog, OKOnTheBeatStartsNoTimer) {
  open({kRed, kGreen}, {1, 2});
  show.press(dialog.beatControl);
  effect.color2 = 12345;
  show.press(dialog.OK);
  EXPECT_FALSE(deck.timer1.enabled());
  EXPECT_EQ(effect.color2, 12345);
}

TEST_P(ColorChangeDialog, OKWithoutColoursMarksTheSlotAsNotEdited) {
  open({}, {});
  deck.efxEdited.at(0) = true;
  show.press(dialog.OK);
  EXPECT_FALSE(deck.efxEdited.at(0));
}

TEST_P(ColorChangeDialog, ActivationAndABackgroundClickClearTheSelection) {
  open({kRed, kGreen}, {1, 2});
  dialog.ColorList.select(1);
  show.act([this] { dialog.onClick(); });
  EXPECT_EQ(dialog.ColorList.selected(), -1);
  dialog.ColorList.select(1);
  engine.desktop.activate(show.plugin.matrixForm);
  engine.desktop.activate(dialog);
  EXPECT_EQ(dialog.ColorList.selected(), -1);
}

TEST_P(ColorChangeDialog, OpeningOnDeckAAloneMakesRoomForAllTimes) {
  setList(effect, {kRed, kGreen}, {});
  deck.type.setIndex(kColorChange);
  effect.itemTimes.clear();
  show.platform.failures.clear();
  show.press(show.panel(GetParam()).edit);
  if (isB()) {
    ASSERT_EQ(show.platform.failures.size(), 1U);
    EXPECT_EQ(show.platform.failures[0].number, kSubscript);
    EXPECT_FALSE(dialog.visible());
  } else {
    EXPECT_TRUE(show.platform.failures.empty());
    EXPECT_EQ(effect.itemTimes.size(), 3U);
    EXPECT_TRUE(dialog.visible());
  }
}

TEST_P(ColorChangeDialog, ChoosingTheTypeLeaves30AsTheSpeed) {
  effect.type = kColor;
  effect.amount = 17;
  effect.fadeMode = 4;
  show.act([this] { deck.type.setIndex(kColorChange); });
  EXPECT_EQ(effect.speed, 30);
  EXPECT_EQ(effect.amount, 17);
  EXPECT_EQ(effect.fadeMode, 4);
}

TEST_P(ColorChangeDialog, ARecordWithAModeThatDoesNotExistCannotBeShown) {
  setList(effect, {kRed, kGreen}, {1, 2});
  show.start(GetParam());
  effect.fadeMode = 9;
  show.press(show.panel(GetParam()).edit);
  ASSERT_EQ(show.platform.failures.size(), 1U);
  EXPECT_EQ(show.platform.failures[0].number, kInvalidPropertyValue);
  EXPECT_EQ(effect.fadeMode, 9);
}

}  // namespace
}  // namespace korvane
