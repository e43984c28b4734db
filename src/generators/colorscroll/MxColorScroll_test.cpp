#include "generators/colorscroll/MxColorScroll.h"

#include <gtest/gtest.h>

#include "generators/colorchange/MxColorChange.h"
#include "generators/colorscroll/ColorScrollCode.h"
#include "platform/Failure.h"
#include "testing/ColorEffects.h"

namespace korvane {
namespace {

class ColorScrollDialog : public ColorEffectsOnDecks<kColorScroll> {
 protected:
  ColorScrollDialog() { effect.direction = 1; }

  void open(const std::vector<Color>& colors, const std::vector<std::int32_t>& widths) {
    setColors(colors, {}, widths);
    start();
    edit();
    ASSERT_TRUE(dialog.visible());
  }
  void update() {
    event([this] { dialog.updateColorList2(); });
  }
  std::vector<int> pressed() {
    std::vector<int> indices;
    for (int index = 0; index <= 12; ++index) {
      if (dialog.richtung.button(index).pressed()) indices.push_back(index);
    }
    return indices;
  }

  MxColorScroll& dialog = plugin.window<MxColorScroll>();
  Slider& otherSpeed = plugin.window<MxColorChange>().slSpeed;
};

KORVANE_BOTH_DECKS(ColorScrollDialog);

TEST_P(ColorScrollDialog, ShowsTheRecord) {
  effect.direction = 11;
  effect.scrollFadeMode = 1;
  effect.beatControl = 1;
  open({kRed, kGreen}, {3, 20});
  EXPECT_EQ(pressed(), std::vector<int>{11});
  EXPECT_TRUE(dialog.fadeMode.checked());
  EXPECT_TRUE(dialog.beatControl.checked());
  EXPECT_EQ(dialog.ColorList.cell(1, 1), "20");
}

TEST_P(ColorScrollDialog, HasItsTexts) {
  EXPECT_EQ(dialog.myName.look().label, "Name : ");
  EXPECT_EQ(dialog.slSpeed.look().label, "Speed : ");
  EXPECT_EQ(dialog.slSpeed.look().caption, "10s - 0,2s");
  EXPECT_EQ(dialog.directionLabel.look().caption, "Direction : ");
  EXPECT_EQ(dialog.fadeMode.look().label, "Fade Mode : ");
  EXPECT_EQ(dialog.beatControl.look().label, "Beat Control : ");
}

TEST_P(ColorScrollDialog, TheSpeedOpensInTheSliderOfTheColorChangeDialog) {
  effect.speed = 77;
  open({kRed, kGreen}, {1, 1});
  EXPECT_EQ(otherSpeed.value(), 77);
  EXPECT_EQ(dialog.slSpeed.value(), 0);
  EXPECT_EQ(effect.speed, 77);
  event([this] { dialog.slSpeed.setValue(40); });
  effect.speed = 60;
  edit();
  EXPECT_EQ(otherSpeed.value(), 60);
  EXPECT_EQ(dialog.slSpeed.value(), 40) << "it keeps the position of its last use";
  EXPECT_EQ(effect.speed, 60);
}

TEST_P(ColorScrollDialog, OpeningLeavesTheStepIntervalAlone) {
  effect.speed = 77;
  open({kRed, kGreen}, {1, 1});
  EXPECT_EQ(deck.timer1.interval(), 473);
  effect.itemTimes = {4, 4, 0};  // of a colour change that it was
  effect.speed = 78;
  edit();
  EXPECT_EQ(otherSpeed.value(), 78);
  EXPECT_EQ(deck.timer1.interval(), 473);
  EXPECT_TRUE(platform.failures.empty());
}

TEST_P(ColorScrollDialog, AnUnsetSpeedBecomes50AsTheDialogOpens) {
  effect.speed = 0;
  open({kRed, kGreen}, {1, 1});
  EXPECT_EQ(effect.speed, 50);
  EXPECT_EQ(otherSpeed.value(), 50);
}

TEST_P(ColorScrollDialog, SpeedActsAtOnce) {
  open({kRed, kGreen}, {1, 1});
  event([this] { dialog.slSpeed.setValue(100); });
  EXPECT_EQ(effect.speed, 100);
  EXPECT_EQ(deck.timer1.interval(), 50);
  event([this] { dialog.slSpeed.setValue(0); });
  EXPECT_EQ(effect.speed, 0);
  EXPECT_EQ(deck.timer1.interval(), 8050);
}

TEST_P(ColorScrollDialog, EveryDirectionCanBePressedOnTheSmallestGrid) {
  resize(1, 1);
  open({kRed, kGreen}, {1, 1});
  for (int index = 0; index <= 12; ++index) {
    deck.step = 3;
    click(dialog.richtung.button(index));
    EXPECT_EQ(effect.direction, index);
    EXPECT_EQ(deck.step, 0);
    EXPECT_EQ(pressed(), std::vector<int>{index});
  }
}

TEST_P(ColorScrollDialog, ANewDirectionPushesThePictureAwayFromAFreshWindow) {
  resize(3, 2);
  open({kRed, kGreen}, {1, 1});
  deck.frame = frameOf({"BBB", "WWW"});
  deck.step = 2;
  click(dialog.richtung.button(2));
  expectPicture(deck.frame, {"BBB", "WWW"});
  event([this] { tickColorScroll(engine, deck); });
  expectPicture(deck.frame, {"WWW", "WWR"});
}

TEST_P(ColorScrollDialog, FadeModeRebuildsTheStrip) {
  open({kRed, kBlue}, {2, 2});
  EXPECT_EQ(deck.scrollStrip.at(0), (Rgb{255, 0, 0}));
  toggle(dialog.fadeMode);
  EXPECT_EQ(effect.scrollFadeMode, 1);
  EXPECT_EQ(deck.scrollStrip.at(0), (Rgb{128, 0, 128}));
  toggle(dialog.fadeMode);
  EXPECT_EQ(effect.scrollFadeMode, 0);
  EXPECT_EQ(deck.scrollStrip.at(0), (Rgb{255, 0, 0}));
}

TEST_P(ColorScrollDialog, AListChangeRebuildsTheStrip) {
  open({kRed, kBlue}, {2, 2});
  dialog.ColorList.setCell(0, 1, "4,5");
  update();
  EXPECT_EQ(effect.itemWidths, (std::vector<std::int32_t>{4, 2, 0}));
  EXPECT_EQ(deck.scrollLength, 6);
}

TEST_P(ColorScrollDialog, AListChangeComparesThePositionWithTheTransitionsCounter) {
  open({kRed, kBlue}, {20, 20});
  deck.steps = 15;
  for (const auto& [before, after] :
       {std::pair(-1, 0), std::pair(15, 15), std::pair(16, 0), std::pair(39, 0)}) {
    deck.colorIndex = static_cast<std::int16_t>(before);
    update();
    EXPECT_EQ(deck.colorIndex, after) << "from " << before;
  }
}

TEST_P(ColorScrollDialog, AListChangeStartsTheTimerUnlessOnTheBeat) {
  open({kRed, kBlue}, {2, 2});
  deck.timer1.disable();
  deck.timer1.setInterval(7);
  update();
  EXPECT_TRUE(deck.timer1.enabled());
  EXPECT_EQ(deck.timer1.interval(), 2050);
  toggle(dialog.beatControl);
  update();
  EXPECT_FALSE(deck.timer1.enabled());
}

TEST_P(ColorScrollDialog, AListWithOneColourLeftStopsTheTimerAndKeepsTheStrip) {
  open({kRed, kBlue}, {2, 2});
  dialog.ColorList.select(0);
  click(dialog.removeColor);
  EXPECT_FALSE(deck.timer1.enabled());
  EXPECT_EQ(deck.scrollLength, 4);
}

TEST_P(ColorScrollDialog, WidthsThatOverflowAreReportedAndTheOldStripRunsOn) {
  open({kRed, kBlue}, {2, 2});
  event([this] { dialog.ColorList.click(0, 1); });
  event([this] { dialog.ColorList.endEdit("32766"); });
  ASSERT_EQ(platform.failures.size(), 1U);
  EXPECT_EQ(platform.failures[0].number, kOverflow);
  EXPECT_EQ(dialog.ColorList.cell(0, 1), "32766");
  EXPECT_EQ(deck.scrollLength, 4);
  EXPECT_TRUE(deck.timer1.enabled());
}

TEST_P(ColorScrollDialog, OnDeckBTheNewNameLivesInTheListOnly) {
  effect.name = "old";
  open({kRed, kBlue}, {2, 2});
  event([this] { dialog.myName.setText("new"); });
  click(dialog.OK);
  EXPECT_EQ(deck.efxList.row(0).text, "new");
  EXPECT_EQ(effect.name, isB() ? "old" : "new");
  EXPECT_TRUE(deck.efxEdited.at(0));
  edit();
  EXPECT_EQ(dialog.myName.text(), isB() ? "old" : "new");
}

TEST_P(ColorScrollDialog, OKTakesTheListIfTheTimerStands) {
  open({kRed, kBlue}, {2, 2});
  dialog.ColorList.setCell(0, 1, "9");
  click(dialog.OK);
  EXPECT_EQ(effect.itemWidths.at(0), 2) << "the timer runs";
  edit();
  dialog.ColorList.setCell(0, 1, "9");
  deck.timer1.disable();
  click(dialog.OK);
  EXPECT_EQ(effect.itemWidths.at(0), 9);
  EXPECT_TRUE(deck.timer1.enabled());
}

TEST_P(ColorScrollDialog, OKLeavesThePicture) {
  resize(2, 1);
  open({kRed, kBlue}, {2, 2});
  deck.frame = frameOf({"WG"});
  click(dialog.OK);
  expectPicture(deck.frame, {"WG"});
}

TEST_P(ColorScrollDialog, OnDeckBAloneTheTypeListMakesRoomForAllWidths) {
  effect.type = kColor;
  effect.colorCount = 2;
  effect.colors = {kRed, kBlue, 0};
  effect.itemWidths.clear();
  platform.failures.clear();
  event([this] { deck.type.setIndex(kColorScroll); });
  EXPECT_EQ(platform.failures.size(), isB() ? 0U : 1U);
  EXPECT_EQ(effect.itemWidths.size(), isB() ? 3U : 0U);
}

}  // namespace
}  // namespace korvane
