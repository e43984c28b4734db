#include "generators/MxColorScroll.h"

#include <gtest/gtest.h>

#include "generators/ColorScrollCode.h"
#include "platform/Failure.h"
#include "testing/ColorShow.h"

namespace korvane {
namespace {

using testing::BothDecks;
using testing::expectPicture;
using testing::kBlue;
using testing::kGreen;
using testing::kRed;
using testing::paint;

class ColorScrollDialog : public BothDecks {
 protected:
  ColorScrollDialog() {
    effect.type = kColorScroll;
    effect.speed = 50;
    effect.direction = 1;
  }

  void open(const std::vector<Color>& colors, const std::vector<std::int32_t>& widths) {
    effect.colorCount = static_cast<std::int16_t>(colors.size());
    effect.colors = colors;
    effect.itemWidths = widths;
    effect.colors.push_back(0);
    effect.itemWidths.push_back(0);
    show.start(GetParam());
    edit();
    ASSERT_TRUE(dialog.visible());
  }
  void edit() { show.press(show.panel(GetParam()).edit); }
  void update() {
    show.act([this] { dialog.updateColorList2(); });
  }
  std::vector<int> pressed() {
    std::vector<int> indices;
    for (int index = 0; index <= 12; ++index) {
      if (dialog.richtung.button(index).pressed()) indices.push_back(index);
    }
    return indices;
  }

  MxColorScroll& dialog = show.plugin.dialogs.colorScroll;
  Slider& otherSpeed = show.plugin.dialogs.colorChange.slSpeed;
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

TEST_P(ColorScrollDialog, TheSpeedOpensInTheSliderOfTheColorChangeDialog) {
  effect.speed = 77;
  open({kRed, kGreen}, {1, 1});
  EXPECT_EQ(otherSpeed.value(), 77);
  EXPECT_EQ(dialog.slSpeed.value(), 0);
  EXPECT_EQ(effect.speed, 77);
  show.act([this] { dialog.slSpeed.setValue(40); });
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
  EXPECT_TRUE(show.platform.failures.empty());
}

TEST_P(ColorScrollDialog, AnUnsetSpeedBecomes50AsTheDialogOpens) {
  effect.speed = 0;
  open({kRed, kGreen}, {1, 1});
  EXPECT_EQ(effect.speed, 50);
  EXPECT_EQ(otherSpeed.value(), 50);
}

TEST_P(ColorScrollDialog, SpeedActsAtOnce) {
  open({kRed, kGreen}, {1, 1});
  show.act([this] { dialog.slSpeed.setValue(100); });
  EXPECT_EQ(effect.speed, 100);
  EXPECT_EQ(deck.timer1.interval(), 50);
  show.act([this] { dialog.slSpeed.setValue(0); });
  EXPECT_EQ(effect.speed, 0);
  EXPECT_EQ(deck.timer1.interval(), 8050);
}

TEST_P(ColorScrollDialog, EveryDirectionCanBePressedOnTheSmallestGrid) {
  show.resize(1, 1);
  open({kRed, kGreen}, {1, 1});
  for (int index = 0; index <= 12; ++index) {
    deck.step = 3;
    show.press(dialog.richtung.button(index));
    EXPECT_EQ(effect.direction, index);
    EXPECT_EQ(deck.step, 0);
    EXPECT_EQ(pressed(), std::vector<int>{index});
  }
}

TEST_P(ColorScrollDialog, ANewDirectionPushesThePictureAwayFromAFreshWindow) {
  show.resize(3, 2);
  open({kRed, kGreen}, {1, 1});
  paint(deck.frame, {"BBB", "WWW"});
  deck.step = 2;
  show.press(dialog.richtung.button(2));
  expectPicture(deck.frame, {"BBB", "WWW"});
  show.act([this] { tickColorScroll(engine, deck); });
  expectPicture(deck.frame, {"WWW", "WWR"});
}

TEST_P(ColorScrollDialog, FadeModeRebuildsTheStrip) {
  open({kRed, kBlue}, {2, 2});
  EXPECT_EQ(deck.scrollStrip.at(0), (Rgb{255, 0, 0}));
  show.press(dialog.fadeMode);
  EXPECT_EQ(effect.scrollFadeMode, 1);
  EXPECT_EQ(deck.scrollStrip.at(0), (Rgb{128, 0, 128}));
  show.press(dialog.fadeMode);
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
  show.press(dialog.beatControl);
  update();
  EXPECT_FALSE(deck.timer1.enabled());
}

TEST_P(ColorScrollDialog, AListWithOneColourLeftStopsTheTimerAndKeepsTheStrip) {
  open({kRed, kBlue}, {2, 2});
  dialog.ColorList.select(0);
  show.press(dialog.removeColor);
  EXPECT_FALSE(deck.timer1.enabled());
  EXPECT_EQ(deck.scrollLength, 4);
}

TEST_P(ColorScrollDialog, WidthsThatOverflowAreReportedAndTheOldStripRunsOn) {
  open({kRed, kBlue}, {2, 2});
  show.act([this] { dialog.ColorList.click(0, 1); });
  show.act([this] { dialog.ColorList.endEdit("32766"); });
  ASSERT_EQ(show.platform.failures.size(), 1U);
  EXPECT_EQ(show.platform.failures[0].number, kOverflow);
  EXPECT_EQ(dialog.ColorList.cell(0, 1), "32766");
  EXPECT_EQ(deck.scrollLength, 4);
  EXPECT_TRUE(deck.timer1.enabled());
}

TEST_P(ColorScrollDialog, OnDeckBTheNewNameLivesInTheListOnly) {
  effect.name = "old";
  open({kRed, kBlue}, {2, 2});
  show.act([this] { dialog.myName.setText("new"); });
  show.press(dialog.OK);
  EXPECT_EQ(deck.efxList.row(0).text, "new");
  EXPECT_EQ(effect.name, isB() ? "old" : "new");
  EXPECT_TRUE(deck.efxEdited.at(0));
  edit();
  EXPECT_EQ(dialog.myName.text(), isB() ? "old" : "new");
}

TEST_P(ColorScrollDialog, OKTakesTheListIfTheTimerStands) {
  open({kRed, kBlue}, {2, 2});
  dialog.ColorList.setCell(0, 1, "9");
  show.press(dialog.OK);
  EXPECT_EQ(effect.itemWidths.at(0), 2) << "the timer runs";
  edit();
  dialog.ColorList.setCell(0, 1, "9");
  deck.timer1.disable();
  show.press(dialog.OK);
  EXPECT_EQ(effect.itemWidths.at(0), 9);
  EXPECT_TRUE(deck.timer1.enabled());
}

TEST_P(ColorScrollDialog, OKLeavesThePicture) {
  show.resize(2, 1);
  open({kRed, kBlue}, {2, 2});
  paint(deck.frame, {"WG"});
  show.press(dialog.OK);
  expectPicture(deck.frame, {"WG"});
}

TEST_P(ColorScrollDialog, OnDeckBAloneTheTypeListMakesRoomForAllWidths) {
  effect.type = kColor;
  effect.colorCount = 2;
  effect.colors = {kRed, kBlue, 0};
  effect.itemWidths.clear();
  show.platform.failures.clear();
  show.act([this] { deck.type.setIndex(kColorScroll); });
  EXPECT_EQ(show.platform.failures.size(), isB() ? 0U : 1U);
  EXPECT_EQ(effect.itemWidths.size(), isB() ? 3U : 0U);
}

}  // namespace
}  // namespace korvane
