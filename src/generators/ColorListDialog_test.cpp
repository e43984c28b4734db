#include "generators/ColorListDialog.h"

#include <gtest/gtest.h>

#include <tuple>

#include "platform/Failure.h"
#include "testing/ColorShow.h"

namespace korvane {
namespace {

using testing::ColorShow;
using testing::kBlue;
using testing::kGreen;
using testing::kRed;

// What the dialogs of Color Change and Color Scroll have in common, over both and both decks.
class ColorList : public ::testing::TestWithParam<std::tuple<EffectType, Side>> {
 protected:
  ColorList() {
    effect.type = type;
    effect.speed = 50;
    effect.amount = 100;
    effect.direction = 1;
    show.platform.format = {',', '.'};
  }

  // A running effect with these colours, each for 2 seconds or of width 2, and its dialog open.
  void open(const std::vector<Color>& colors) {
    effect.colorCount = static_cast<std::int16_t>(colors.size());
    effect.colors = colors;
    effect.colors.push_back(0);
    effect.itemTimes.assign(effect.colors.size(), 2);
    effect.itemWidths.assign(effect.colors.size(), 2);
    show.start(side);
    ASSERT_TRUE(show.press(show.panel(side).edit));
    ASSERT_TRUE(dialog.visible());
  }

  std::vector<Color> listed() const {
    std::vector<Color> colors;
    for (const ListView::Row& row : dialog.ColorList.rows()) colors.push_back(row.color);
    return colors;
  }
  std::vector<Color> stored() const {
    return {effect.colors.begin(), effect.colors.begin() + effect.colorCount};
  }
  std::string number(int row) const { return dialog.ColorList.cell(row, 1); }
  double storedNumber(std::size_t index) const {
    return type == kColorChange ? effect.itemTimes.at(index) : effect.itemWidths.at(index);
  }
  void pick(int row, int col) {
    show.act([&] { dialog.ColorList.click(row, col); });
  }
  void enter(const std::string& text) {
    show.act([&] { dialog.ColorList.endEdit(text); });
  }
  void pickColor(Color color) {
    MxColorMixer& mixer = show.plugin.dialogs.mixer;
    ASSERT_TRUE(mixer.visible());
    mixer.Sred.setValue(colorPart(color, kRedMask));
    mixer.Sgreen.setValue(colorPart(color, kGreenMask));
    mixer.Sblue.setValue(colorPart(color, kBlueMask));
    show.press(mixer.Bok);
  }

  const EffectType type = std::get<0>(GetParam());
  const Side side = std::get<1>(GetParam());
  ColorShow show;
  Deck& deck = show.deck(side);
  Effect& effect = deck.effect();
  ColorListDialog& dialog = type == kColorChange
                                ? static_cast<ColorListDialog&>(show.plugin.dialogs.colorChange)
                                : show.plugin.dialogs.colorScroll;
};

INSTANTIATE_TEST_SUITE_P(Dialog, ColorList,
                         ::testing::Combine(::testing::Values(kColorChange, kColorScroll),
                                            ::testing::Values(Side::A, Side::B)),
                         [](const auto& row) {
                           const bool change = std::get<0>(row.param) == kColorChange;
                           return std::string(change ? "Change" : "Scroll") +
                                  (std::get<1>(row.param) == Side::B ? "B" : "A");
                         });

TEST_P(ColorList, OpensWithOneEntryPerColourDrawnInIt) {
  effect.name = "sunset";
  open({kRed, kGreen});
  EXPECT_EQ(dialog.myName.text(), "sunset");
  EXPECT_EQ(listed(), (std::vector<Color>{kRed, kGreen}));
  EXPECT_EQ(dialog.ColorList.row(0).text, "||||||||||||");
  EXPECT_EQ(number(0), "2");
  EXPECT_DOUBLE_EQ(dialog.ColorList.columns().at(0).width, 0.6);
  EXPECT_DOUBLE_EQ(dialog.ColorList.columns().at(1).width, 0.3);
  EXPECT_EQ(dialog.ColorList.columns().at(0).title, "Color");
  EXPECT_EQ(dialog.ColorList.columns().at(1).title, type == kColorChange ? "Time(s)" : "Width");
}

TEST_P(ColorList, OpensForAnEffectWithoutColoursAndFillsIt) {
  effect.speed = 30;
  open({});
  EXPECT_TRUE(show.platform.failures.empty());
  EXPECT_EQ(dialog.ColorList.count(), 0);
  for (const Color color : {kRed, kBlue}) {
    show.press(dialog.addColor);
    pickColor(color);
  }
  EXPECT_TRUE(show.platform.failures.empty());
  EXPECT_EQ(stored(), (std::vector<Color>{kRed, kBlue}));
  EXPECT_TRUE(deck.timer1.enabled());
}

TEST_P(ColorList, OpensAgainForTheOtherDecksRecord) {
  open({kRed, kGreen});
  const Side other = side == Side::A ? Side::B : Side::A;
  Effect& second = show.effect(other);
  second.type = type;
  second.speed = 70;
  second.colorCount = 1;
  second.colors = {kBlue, 0};
  second.itemTimes = {1, 0};
  second.itemWidths = {4, 0};
  show.start(other);
  show.press(show.panel(other).edit);
  EXPECT_EQ(listed(), std::vector<Color>{kBlue});
  EXPECT_EQ(stored(), (std::vector<Color>{kRed, kGreen}));
  EXPECT_EQ(effect.speed, 50);
}

TEST_P(ColorList, AddOpensTheMixerAtBlack) {
  open({kRed, kGreen});
  show.press(dialog.addColor);
  EXPECT_TRUE(show.plugin.dialogs.mixer.modal());
  EXPECT_EQ(show.plugin.dialogs.mixer.Presult.backColor(), 0);
  EXPECT_FALSE(show.plugin.dialogs.mixer.caption().empty());
}

TEST_P(ColorList, AnAddedColourGetsItsFirstNumberAndIsNotSelected) {
  open({kRed, kGreen});
  pick(1, 0);
  show.press(dialog.addColor);
  pickColor(kBlue);
  EXPECT_EQ(listed(), (std::vector<Color>{kRed, kGreen, kBlue}));
  EXPECT_EQ(number(2), type == kColorChange ? "3,00" : "1");
  EXPECT_EQ(storedNumber(2), type == kColorChange ? 3 : 1);
  EXPECT_FALSE(dialog.ColorList.row(2).selected);
  EXPECT_EQ(stored(), (std::vector<Color>{kRed, kGreen, kBlue}));
  EXPECT_EQ(effect.colors.size(), 4U);
  EXPECT_EQ(effect.colors[3], 0);
}

TEST_P(ColorList, TheFirstNumberIsReadUnderEveryLocale) {
  show.platform.format = {'.', ','};
  open({kRed});
  show.press(dialog.addColor);
  pickColor(kBlue);
  EXPECT_EQ(storedNumber(1), type == kColorChange ? 3 : 1);
}

TEST_P(ColorList, AMixerLeftWithCancelAddsTheColourOfThePreviousUse) {
  open({kRed, kGreen});
  show.engine.v.pickedColorBefore = kBlue;
  show.press(dialog.addColor);
  show.press(show.plugin.dialogs.mixer.Bcancel);
  EXPECT_EQ(listed(), (std::vector<Color>{kRed, kGreen, kBlue}));
}

TEST_P(ColorList, RemoveTakesTheSelectedEntry) {
  open({kRed, kGreen, kBlue});
  pick(1, 0);
  deck.colorIndex = 0;
  show.press(dialog.removeColor);
  EXPECT_EQ(listed(), (std::vector<Color>{kRed, kBlue}));
  EXPECT_EQ(stored(), (std::vector<Color>{kRed, kBlue}));
  EXPECT_EQ(effect.colors.size(), 3U);
}

TEST_P(ColorList, RemoveWithoutASelectionChangesNothing) {
  open({kRed, kGreen});
  dialog.ColorList.unselectAll();
  show.press(dialog.removeColor);
  EXPECT_EQ(stored(), (std::vector<Color>{kRed, kGreen}));
}

TEST_P(ColorList, TheLastColourCanBeRemoved) {
  open({kRed});
  dialog.ColorList.select(0);
  show.press(dialog.removeColor);
  EXPECT_EQ(effect.colorCount, 0);
  EXPECT_EQ(effect.colors, std::vector<Color>{0});
  show.press(dialog.OK);
  EXPECT_FALSE(deck.efxEdited.at(0));
}

TEST_P(ColorList, UpAndDownExchangeWithTheNeighbourAndTakeTheSelectionAlong) {
  open({kRed, kGreen, kBlue});
  dialog.ColorList.setCell(2, 1, "7");
  dialog.ColorList.select(2);
  show.press(dialog.upColor);
  EXPECT_EQ(listed(), (std::vector<Color>{kRed, kBlue, kGreen}));
  EXPECT_EQ(number(1), "7");
  EXPECT_EQ(dialog.ColorList.selected(), 1);
  EXPECT_EQ(stored(), (std::vector<Color>{kRed, kBlue, kGreen}));
  EXPECT_EQ(storedNumber(1), 7);
  show.press(dialog.downColor);
  EXPECT_EQ(stored(), (std::vector<Color>{kRed, kGreen, kBlue}));
  EXPECT_EQ(storedNumber(2), 7);
  EXPECT_EQ(dialog.ColorList.selected(), 2);
}

TEST_P(ColorList, UpAndDownStopAtTheEndsAndNeedASelection) {
  open({kRed, kGreen});
  dialog.ColorList.select(0);
  show.press(dialog.upColor);
  dialog.ColorList.select(1);
  show.press(dialog.downColor);
  dialog.ColorList.unselectAll();
  show.press(dialog.upColor);
  show.press(dialog.downColor);
  EXPECT_EQ(stored(), (std::vector<Color>{kRed, kGreen}));
  EXPECT_TRUE(show.platform.failures.empty());
}

TEST_P(ColorList, AClickOnAColourShowsItAndGoesOnFromThere) {
  show.resize(2, 1);
  open({kRed, kGreen});
  deck.timer1.disable();
  deck.timer1.setInterval(7);
  pick(1, 0);
  testing::expectPicture(deck.frame, {"GG"});
  EXPECT_EQ(effect.color1, kGreen);
  EXPECT_EQ(deck.colorIndex, 1);
  EXPECT_TRUE(deck.timer1.enabled());
  EXPECT_EQ(deck.timer1.interval(), type == kColorChange ? 2000 : 2050);
}

TEST_P(ColorList, AClickOnTheOnlyColourShowsItAndStartsNothing) {
  show.resize(1, 1);
  open({kBlue});
  deck.frame.fill({});
  pick(0, 0);
  testing::expectPicture(deck.frame, {"B"});
  EXPECT_FALSE(deck.timer1.enabled());
}

TEST_P(ColorList, AClickOnTheNumberOpensTheEditorAndShowsNothing) {
  show.resize(1, 1);
  open({kRed, kGreen});
  const std::vector<std::string> before = testing::drawing(deck.frame);
  pick(1, 1);
  EXPECT_TRUE(dialog.ColorList.editing());
  EXPECT_EQ(dialog.ColorList.editRow(), 1);
  EXPECT_EQ(dialog.ColorList.editCol(), 1);
  testing::expectPicture(deck.frame, before);
}

struct Edit {
  std::string typed, time, width;  // what stands in the cell afterwards
};

TEST_P(ColorList, TheEditorNormalisesWhatIsTyped) {
  for (const Edit& row : {
           Edit{"4", "4", "4"},
           Edit{"2,5", "2,5", "2,5"},
           Edit{"2.5", "2,5", "2,5"},
           Edit{" 3,00 ", "3", "3"},
           Edit{"0,5", "0,5", "1"},  // rounds to 0: ties to even
           Edit{"0,51", "0,51", "0,51"},
           Edit{"0", "0.1", "1"},
           Edit{"-2", "0.1", "-2"},
           Edit{"", "10", "10"},
           Edit{"ten", "2", "2"},
           Edit{"1.000,5", "2", "2"},
           Edit{"1e400", "2", "2"},
       }) {
    open({kRed, kGreen});
    pick(1, 1);
    enter(row.typed);
    EXPECT_EQ(number(1), type == kColorChange ? row.time : row.width) << "'" << row.typed << "'";
    EXPECT_FALSE(dialog.ColorList.editing());
  }
}

TEST_P(ColorList, AnEditReachesTheRecord) {
  open({kRed, kGreen});
  pick(1, 1);
  enter("4.4");
  EXPECT_DOUBLE_EQ(storedNumber(1), type == kColorChange ? 4.4 : 4);
}

TEST_P(ColorList, TheFirstColumnTakesWhatIsTyped) {
  open({kRed, kGreen});
  ASSERT_TRUE(dialog.ColorList.beginEdit(0, 0));
  enter("dawn");
  EXPECT_EQ(dialog.ColorList.cell(0, 0), "dawn");
  EXPECT_EQ(stored(), (std::vector<Color>{kRed, kGreen}));
}

TEST_P(ColorList, BeatControlTurnsTheTimersOffAndLocksOutFor200Milliseconds) {
  open({kRed, kGreen});
  deck.timer2.enable();
  show.press(dialog.beatControl);
  EXPECT_FALSE(deck.timer1.enabled());
  EXPECT_FALSE(deck.timer2.enabled());
  EXPECT_EQ(deck.timer2.interval(), 200);
  EXPECT_EQ(effect.beatControl, 1);
  EXPECT_TRUE(deck.beatOn);
  EXPECT_TRUE(show.engine.v.beatControlSeen);
  EXPECT_FALSE(show.deck(side == Side::A ? Side::B : Side::A).beatOn);
}

TEST_P(ColorList, BeatControlOffRunsTheStepTimerAgain) {
  open({kRed, kGreen});
  show.press(dialog.beatControl);
  show.press(dialog.beatControl);
  EXPECT_TRUE(deck.timer1.enabled());
  EXPECT_EQ(effect.beatControl, 0);
  EXPECT_FALSE(deck.beatOn);
  EXPECT_FALSE(show.engine.v.beatControlSeen);
}

TEST_P(ColorList, BeatControlOffWithOneColourLeavesTheTimerOff) {
  open({kRed});
  show.press(dialog.beatControl);
  show.press(dialog.beatControl);
  EXPECT_FALSE(deck.timer1.enabled());
}

TEST_P(ColorList, EnterInTheNameActsAsOK) {
  open({kRed, kGreen});
  show.act([this] {
    dialog.myName.setText("dusk");
    dialog.myName.keyPress('x');
  });
  EXPECT_TRUE(dialog.visible());
  show.act([this] { dialog.myName.keyPress(13); });
  EXPECT_FALSE(dialog.visible());
  EXPECT_EQ(deck.efxList.row(0).text, "dusk");
  EXPECT_TRUE(deck.efxEdited.at(0));
}

TEST_P(ColorList, EveryControlExplainsItself) {
  for (const Control* control : dialog.controls())
    EXPECT_FALSE(control->look().toolTip.empty()) << control->name();
}

}  // namespace
}  // namespace korvane
