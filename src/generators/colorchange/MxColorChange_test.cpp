#include "generators/colorchange/MxColorChange.h"

#include <gtest/gtest.h>

#include "generators/colorchange/ColorChangeCode.h"
#include "platform/Failure.h"
#include "testing/ColorEffects.h"

namespace korvane {
namespace {

class ColorChangeDialog : public ColorEffectsOnDecks<kColorChange> {
 protected:
  void open(const std::vector<Color>& colors, const std::vector<double>& times) {
    setColors(colors, times, {});
    start();
    ASSERT_TRUE(edit());
    ASSERT_TRUE(dialog.visible());
  }
  void set(Slider& slider, int value) {
    event([&] { slider.setValue(value); });
  }
  void choose(int mode) {
    event([&] { dialog.cbFadeMode.setIndex(mode); });
  }

  MxColorChange& dialog = plugin.window<MxColorChange>();
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

TEST_P(ColorChangeDialog, HasItsTexts) {
  EXPECT_EQ(dialog.myName.look().label, "Name : ");
  EXPECT_EQ(dialog.slSpeed.look().label, "Speed : ");
  EXPECT_EQ(dialog.slSpeed.look().caption, "+/- 200%");
  EXPECT_EQ(dialog.slFade.look().label, "Fade Speed : ");
  EXPECT_EQ(dialog.slFade.look().caption, "10-1 sec");
  EXPECT_EQ(dialog.cbFadeMode.look().label, "Fade Effect : ");
  EXPECT_EQ(dialog.beatControl.look().label, "Beat Control : ");
  EXPECT_EQ(dialog.myName.text(), "Blue");
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
  advance(500);
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
  toggle(dialog.beatControl);
  ASSERT_FALSE(deck.timer1.enabled());
  event([this] { dialog.updateColorList(); });
  EXPECT_TRUE(deck.timer1.enabled());
}

TEST_P(ColorChangeDialog, AListChangeTakesTheIntervalFromTheSlider) {
  open({kRed, kGreen}, {1, 2});
  set(dialog.slSpeed, 100);
  effect.speed = 50;
  event([this] { dialog.updateColorList(); });
  EXPECT_EQ(deck.timer1.interval(), 333);
  EXPECT_EQ(effect.speed, 50);
}

TEST_P(ColorChangeDialog, AListChangeMovesAPositionOfMinus1To0Alone) {
  open({kRed, kGreen}, {1, 2});
  deck.colorIndex = -1;
  event([this] { dialog.updateColorList(); });
  EXPECT_EQ(deck.colorIndex, 0);
  deck.colorIndex = 1;
  event([this] { dialog.updateColorList(); });
  EXPECT_EQ(deck.colorIndex, 1);
}

TEST_P(ColorChangeDialog, AChosenModeWaitsForTheEndOfARunningTransition) {
  effect.amount = 100;
  open({kRed, kGreen}, {1, 1});
  choose(kFadeScrollDown);
  EXPECT_EQ(effect.fadeMode, kFadeScrollDown);
  advance(1000);
  ASSERT_TRUE(deck.transitionRunning);
  choose(kFadeBlend);
  EXPECT_EQ(effect.fadeMode, kFadeScrollDown);
  EXPECT_EQ(deck.savedFadeMode, kFadeBlend);
  advance(1250);
  EXPECT_FALSE(deck.transitionRunning);
  EXPECT_EQ(effect.fadeMode, kFadeBlend);
}

TEST_P(ColorChangeDialog, BeatControlForcesTheModeToNone) {
  open({kRed, kGreen}, {1, 1});
  choose(kFadeBlend);
  toggle(dialog.beatControl);
  EXPECT_EQ(dialog.cbFadeMode.index(), 0);
  EXPECT_EQ(effect.fadeMode, 0);
  EXPECT_EQ(deck.savedFadeMode, 0);
  choose(kFadeScrollDown);
  EXPECT_EQ(dialog.cbFadeMode.index(), 0);
  EXPECT_EQ(effect.fadeMode, 0);
}

TEST_P(ColorChangeDialog, BeatControlDuringATransitionKeepsItsModeAndItsStep) {
  effect.amount = 100;
  open({kRed, kGreen}, {1, 1});
  choose(kFadeScrollDown);
  advance(1000 + 2 * 250);
  ASSERT_EQ(deck.step, 2);
  toggle(dialog.beatControl);
  EXPECT_FALSE(deck.timer1.enabled());
  EXPECT_FALSE(deck.timer2.enabled());
  EXPECT_EQ(deck.step, 2);
  EXPECT_EQ(effect.fadeMode, kFadeScrollDown);
  EXPECT_EQ(deck.savedFadeMode, 0);
}

TEST_P(ColorChangeDialog, AModeIsShownThoughTheBoxWasCheckedForTheEffectBefore) {
  open({kRed, kGreen}, {1, 1});
  toggle(dialog.beatControl);
  click(dialog.OK);
  effect.beatControl = 0;
  effect.fadeMode = kFadeBlend;
  edit();
  EXPECT_FALSE(dialog.beatControl.checked());
  EXPECT_EQ(dialog.cbFadeMode.index(), kFadeBlend);
  EXPECT_EQ(effect.fadeMode, kFadeBlend);
}

TEST_P(ColorChangeDialog, OKStoresNameAndSpeedAndGoesOnWithTheCurrentColour) {
  resize(1, 1);
  open({kRed, kGreen, kBlue}, {1, 2, 3});
  deck.colorIndex = 1;
  deck.timer1.disable();
  event([this] { dialog.myName.setText("dawn"); });
  click(dialog.OK);
  EXPECT_FALSE(dialog.visible());
  EXPECT_TRUE(deck.efxEdited.at(0));
  EXPECT_EQ(deck.efxList.row(0).text, "dawn");
  EXPECT_EQ(effect.name, "dawn");
  EXPECT_EQ(effect.color1, kGreen);
  EXPECT_EQ(deck.timer1.interval(), 2000);
  EXPECT_TRUE(deck.timer1.enabled());
  expectPicture(deck.frame, {"G"});
}

TEST_P(ColorChangeDialog, OKTakesColor2FromTheNextColourTheSpareSlotOrTheLast) {
  open({kRed, kGreen, kBlue}, {1, 2, 3});
  for (const auto& [index, color2] : {std::pair(0, kBlue), std::pair(1, kBlue), std::pair(2, 0)}) {
    deck.colorIndex = static_cast<std::int16_t>(index);
    effect.color2 = 12345;
    event([this] { dialog.OK_Click(); });
    EXPECT_EQ(effect.color2, color2) << "at " << index;
  }
}

TEST_P(ColorChangeDialog, OKOnTheBeatStartsNoTimer) {
  open({kRed, kGreen}, {1, 2});
  toggle(dialog.beatControl);
  effect.color2 = 12345;
  click(dialog.OK);
  EXPECT_FALSE(deck.timer1.enabled());
  EXPECT_EQ(effect.color2, 12345);
}

TEST_P(ColorChangeDialog, OKWithoutColoursMarksTheSlotAsNotEdited) {
  open({}, {});
  deck.efxEdited.at(0) = true;
  click(dialog.OK);
  EXPECT_FALSE(deck.efxEdited.at(0));
}

TEST_P(ColorChangeDialog, ActivationAndABackgroundClickClearTheSelection) {
  open({kRed, kGreen}, {1, 2});
  dialog.ColorList.select(1);
  event([this] { dialog.onClick(); });
  EXPECT_EQ(dialog.ColorList.selected(), -1);
  dialog.ColorList.select(1);
  engine.desktop.activate(plugin.matrixForm);
  engine.desktop.activate(dialog);
  EXPECT_EQ(dialog.ColorList.selected(), -1);
}

TEST_P(ColorChangeDialog, OpeningOnDeckAAloneMakesRoomForAllTimes) {
  setColors({kRed, kGreen}, {}, {});
  deck.type.setIndex(kColorChange);
  effect.itemTimes.clear();
  platform.failures.clear();
  edit();
  if (isB()) {
    ASSERT_EQ(platform.failures.size(), 1U);
    EXPECT_EQ(platform.failures[0].number, kSubscript);
    EXPECT_FALSE(dialog.visible());
  } else {
    EXPECT_TRUE(platform.failures.empty());
    EXPECT_EQ(effect.itemTimes.size(), 3U);
    EXPECT_TRUE(dialog.visible());
  }
}

TEST_P(ColorChangeDialog, ChoosingTheTypeLeaves30AsTheSpeed) {
  effect.type = kColor;
  effect.amount = 17;
  effect.fadeMode = 4;
  event([this] { deck.type.setIndex(kColorChange); });
  EXPECT_EQ(effect.speed, 30);
  EXPECT_EQ(effect.amount, 17);
  EXPECT_EQ(effect.fadeMode, 4);
}

TEST_P(ColorChangeDialog, ARecordWithAModeThatDoesNotExistCannotBeShown) {
  setColors({kRed, kGreen}, {1, 2}, {});
  start();
  effect.fadeMode = 9;
  edit();
  ASSERT_EQ(platform.failures.size(), 1U);
  EXPECT_EQ(platform.failures[0].number, kInvalidPropertyValue);
  EXPECT_EQ(effect.fadeMode, 9);
}

TEST_P(ColorChangeDialog, RunsOnWhenTheLastColourIsRemovedWhileItShows) {
  open({kRed, kGreen, rgb(0, 0, 255)}, {1, 1, 1});
  event([&] { dialog.ColorList.click(2, 0); });
  EXPECT_EQ(deck.colorIndex, 2);
  click(dialog.removeColor);
  EXPECT_EQ(deck.colorIndex, 1);
  EXPECT_EQ(effect.color1, kGreen);
  advance(20000);
  EXPECT_TRUE(deck.timer1.enabled());
  click(dialog.OK);
  EXPECT_EQ(takeFailure(), 0);
  EXPECT_FALSE(dialog.visible());
}

TEST_P(ColorChangeDialog, TheIndexStaysWithinAListThatIsEmptied) {
  open({kRed, kGreen}, {1, 1});
  for (const int last : {1, 0}) {
    event([&] { dialog.ColorList.click(last, 0); });
    click(dialog.removeColor);
    EXPECT_EQ(deck.colorIndex, 0);
  }
  advance(20000);
  click(dialog.OK);
  EXPECT_EQ(takeFailure(), 0);
}

}  // namespace
}  // namespace korvane
