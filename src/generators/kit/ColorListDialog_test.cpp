#include "generators/kit/ColorListDialog.h"

#include <gtest/gtest.h>

#include <tuple>

#include "generators/colorchange/MxColorChange.h"
#include "generators/colorscroll/MxColorScroll.h"
#include "platform/Failure.h"
#include "testing/ColorEffects.h"

namespace korvane {
namespace {

// What the dialogs of Color Change and Color Scroll have in common, over both and both decks.
class ColorList : public ColorEffects,
                  public testing::WithParamInterface<std::tuple<EffectType, Side>> {
 protected:
  ColorList() : ColorEffects(std::get<0>(GetParam()), std::get<1>(GetParam())) {
    effect.amount = 100;
    effect.direction = 1;
    platform.format = {',', '.'};
  }

  // A running effect with these colours, each for 2 seconds or of width 2, and its dialog open.
  void open(const std::vector<Color>& colors) {
    setColors(colors, std::vector<double>(colors.size(), 2),
              std::vector<std::int32_t>(colors.size(), 2));
    start();
    ASSERT_TRUE(edit());
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
  std::string cellText(int row) const { return dialog.ColorList.cell(row, 1); }
  double storedNumber(std::size_t index) const {
    return isChange ? effect.itemTimes.at(index) : effect.itemWidths.at(index);
  }
  void pickCell(int row, int col) {
    event([&] { dialog.ColorList.click(row, col); });
  }
  void enter(const std::string& text) {
    event([&] { dialog.ColorList.endEdit(text); });
  }
  void pickColor(Color color) {
    MxColorMixer& mixer = plugin.dialogs.mixer;
    ASSERT_TRUE(mixer.visible());
    mixer.Sred.setValue(colorPart(color, kRedMask));
    mixer.Sgreen.setValue(colorPart(color, kGreenMask));
    mixer.Sblue.setValue(colorPart(color, kBlueMask));
    click(mixer.Bok);
  }

  Deck& other = isB() ? v.A : v.B;
  const bool isChange = std::get<0>(GetParam()) == kColorChange;
  ColorListDialog& dialog = isChange ? static_cast<ColorListDialog&>(plugin.window<MxColorChange>())
                                     : plugin.window<MxColorScroll>();
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
  EXPECT_EQ(cellText(0), "2");
  EXPECT_DOUBLE_EQ(dialog.ColorList.columns().at(0).width, 0.6);
  EXPECT_DOUBLE_EQ(dialog.ColorList.columns().at(1).width, 0.3);
  EXPECT_EQ(dialog.ColorList.columns().at(0).title, "Color");
  EXPECT_EQ(dialog.ColorList.columns().at(1).title, isChange ? "Time(s)" : "Width");
}

TEST_P(ColorList, OpensForAnEffectWithoutColoursAndFillsIt) {
  effect.speed = 30;
  open({});
  EXPECT_TRUE(platform.failures.empty());
  EXPECT_EQ(dialog.ColorList.count(), 0);
  for (const Color color : {kRed, kBlue}) {
    click(dialog.addColor);
    pickColor(color);
  }
  EXPECT_TRUE(platform.failures.empty());
  EXPECT_EQ(stored(), (std::vector<Color>{kRed, kBlue}));
  EXPECT_TRUE(deck.timer1.enabled());
}

TEST_P(ColorList, OpensAgainForTheOtherDecksRecord) {
  open({kRed, kGreen});
  Effect& second = other.effect();
  second.type = effect.type;
  second.speed = 70;
  second.colorCount = 2;
  second.colors = {kBlue, kRed, 0};
  second.itemTimes = {1, 1, 0};
  second.itemWidths = {4, 1, 0};
  pick(other.efxList, 0);
  click((isB() ? plugin.matrixForm.panelA : plugin.matrixForm.panelB).edit);
  EXPECT_EQ(listed(), (std::vector<Color>{kBlue, kRed}));
  EXPECT_EQ(stored(), (std::vector<Color>{kRed, kGreen}));
  EXPECT_EQ(effect.speed, 50);
}

TEST_P(ColorList, AddOpensTheMixerAtBlack) {
  open({kRed, kGreen});
  click(dialog.addColor);
  EXPECT_TRUE(plugin.dialogs.mixer.modal());
  EXPECT_EQ(plugin.dialogs.mixer.Presult.backColor(), 0);
  EXPECT_FALSE(plugin.dialogs.mixer.caption().empty());
}

TEST_P(ColorList, AnAddedColourGetsItsFirstNumberAndIsNotSelected) {
  open({kRed, kGreen});
  pickCell(1, 0);
  click(dialog.addColor);
  pickColor(kBlue);
  EXPECT_EQ(listed(), (std::vector<Color>{kRed, kGreen, kBlue}));
  EXPECT_EQ(cellText(2), isChange ? "3,00" : "1");
  EXPECT_EQ(storedNumber(2), isChange ? 3 : 1);
  EXPECT_FALSE(dialog.ColorList.row(2).selected);
  EXPECT_EQ(stored(), (std::vector<Color>{kRed, kGreen, kBlue}));
  EXPECT_EQ(effect.colors.size(), 4U);
  EXPECT_EQ(effect.colors[3], 0);
}

TEST_P(ColorList, TheFirstNumberIsReadUnderEveryLocale) {
  platform.format = {'.', ','};
  open({kRed});
  click(dialog.addColor);
  pickColor(kBlue);
  EXPECT_EQ(storedNumber(1), isChange ? 3 : 1);
}

TEST_P(ColorList, AMixerLeftWithCancelAddsTheColourOfThePreviousUse) {
  open({kRed, kGreen});
  v.pickedColorBefore = kBlue;
  click(dialog.addColor);
  click(plugin.dialogs.mixer.Bcancel);
  EXPECT_EQ(listed(), (std::vector<Color>{kRed, kGreen, kBlue}));
}

TEST_P(ColorList, RemoveTakesTheSelectedEntry) {
  open({kRed, kGreen, kBlue});
  pickCell(1, 0);
  deck.colorIndex = 0;
  click(dialog.removeColor);
  EXPECT_EQ(listed(), (std::vector<Color>{kRed, kBlue}));
  EXPECT_EQ(stored(), (std::vector<Color>{kRed, kBlue}));
  EXPECT_EQ(effect.colors.size(), 3U);
}

TEST_P(ColorList, RemoveWithoutASelectionChangesNothing) {
  open({kRed, kGreen});
  dialog.ColorList.unselectAll();
  deck.timer1.disable();
  click(dialog.removeColor);
  EXPECT_EQ(listed(), (std::vector<Color>{kRed, kGreen}));
  EXPECT_EQ(stored(), (std::vector<Color>{kRed, kGreen}));
  EXPECT_FALSE(deck.timer1.enabled()) << "the list is not taken anew";
}

TEST_P(ColorList, TheLastColourCanBeRemoved) {
  open({kRed});
  dialog.ColorList.select(0);
  click(dialog.removeColor);
  EXPECT_EQ(effect.colorCount, 0);
  EXPECT_EQ(effect.colors, std::vector<Color>{0});
  click(dialog.OK);
  EXPECT_FALSE(deck.efxEdited.at(0));
}

TEST_P(ColorList, UpAndDownExchangeWithTheNeighbourAndTakeTheSelectionAlong) {
  open({kRed, kGreen, kBlue});
  dialog.ColorList.setCell(2, 1, "7");
  dialog.ColorList.select(2);
  click(dialog.upColor);
  EXPECT_EQ(listed(), (std::vector<Color>{kRed, kBlue, kGreen}));
  EXPECT_EQ(cellText(1), "7");
  EXPECT_EQ(dialog.ColorList.selected(), 1);
  EXPECT_EQ(stored(), (std::vector<Color>{kRed, kBlue, kGreen}));
  EXPECT_EQ(storedNumber(1), 7);
  click(dialog.downColor);
  EXPECT_EQ(stored(), (std::vector<Color>{kRed, kGreen, kBlue}));
  EXPECT_EQ(storedNumber(2), 7);
  EXPECT_EQ(dialog.ColorList.selected(), 2);
}

TEST_P(ColorList, UpAndDownStopAtTheEndsAndNeedASelection) {
  open({kRed, kGreen});
  dialog.ColorList.select(0);
  click(dialog.upColor);
  dialog.ColorList.select(1);
  click(dialog.downColor);
  dialog.ColorList.unselectAll();
  click(dialog.upColor);
  click(dialog.downColor);
  EXPECT_EQ(stored(), (std::vector<Color>{kRed, kGreen}));
  EXPECT_TRUE(platform.failures.empty());
}

TEST_P(ColorList, AClickOnAColourShowsItAndGoesOnFromThere) {
  resize(2, 1);
  open({kRed, kGreen});
  deck.timer1.disable();
  deck.timer1.setInterval(7);
  pickCell(1, 0);
  expectPicture(deck.frame, {"GG"});
  EXPECT_EQ(effect.color1, kGreen);
  EXPECT_EQ(deck.colorIndex, 1);
  EXPECT_TRUE(deck.timer1.enabled());
  EXPECT_EQ(deck.timer1.interval(), 2000);  // the record's time, whatever the effect
}

// A Color Scroll has no times of its own.
TEST_P(ColorList, AClickedColourOfNoTimeStandsUntilOk) {
  resize(2, 1);
  open({kRed, kGreen});
  effect.itemTimes.assign(3, 0);
  pickCell(1, 0);
  EXPECT_EQ(deck.timer1.interval(), 0);
  advance(60000);
  expectPicture(deck.frame, {"GG"});
  click(dialog.OK);
  EXPECT_EQ(deck.timer1.interval(), isChange ? 0 : 2050);
}

TEST_P(ColorList, AClickOnTheOnlyColourShowsItAndStartsNothing) {
  resize(1, 1);
  open({kBlue});
  deck.frame.fill({});
  pickCell(0, 0);
  expectPicture(deck.frame, {"B"});
  EXPECT_FALSE(deck.timer1.enabled());
}

TEST_P(ColorList, AClickOnTheNumberOpensTheEditorAndShowsNothing) {
  resize(1, 1);
  open({kRed, kGreen});
  deck.frame = frameOf({"W"});
  pickCell(1, 1);
  EXPECT_TRUE(dialog.ColorList.editing());
  EXPECT_EQ(dialog.ColorList.editRow(), 1);
  EXPECT_EQ(dialog.ColorList.editCol(), 1);
  expectPicture(deck.frame, {"W"});
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
    pickCell(1, 1);
    enter(row.typed);
    EXPECT_EQ(cellText(1), isChange ? row.time : row.width) << "'" << row.typed << "'";
    EXPECT_FALSE(dialog.ColorList.editing());
  }
}

TEST_P(ColorList, AnEditReachesTheRecord) {
  open({kRed, kGreen});
  pickCell(1, 1);
  enter("4.4");
  EXPECT_DOUBLE_EQ(storedNumber(1), isChange ? 4.4 : 4);
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
  toggle(dialog.beatControl);
  EXPECT_FALSE(deck.timer1.enabled());
  EXPECT_FALSE(deck.timer2.enabled());
  EXPECT_EQ(deck.timer2.interval(), 200);
  EXPECT_EQ(effect.beatControl, 1);
  EXPECT_TRUE(deck.beatOn);
  EXPECT_TRUE(v.beatControlSeen);
  EXPECT_FALSE(other.beatOn);
}

TEST_P(ColorList, BeatControlOffRunsTheStepTimerAgain) {
  open({kRed, kGreen});
  toggle(dialog.beatControl);
  toggle(dialog.beatControl);
  EXPECT_TRUE(deck.timer1.enabled());
  EXPECT_EQ(effect.beatControl, 0);
  EXPECT_FALSE(deck.beatOn);
  EXPECT_FALSE(v.beatControlSeen);
}

TEST_P(ColorList, BeatControlOffWithOneColourLeavesTheTimerOff) {
  open({kRed});
  toggle(dialog.beatControl);
  toggle(dialog.beatControl);
  EXPECT_FALSE(deck.timer1.enabled());
}

TEST_P(ColorList, EnterInTheNameActsAsOK) {
  open({kRed, kGreen});
  event([this] {
    dialog.myName.setText("dusk");
    dialog.myName.keyPress('x');
  });
  EXPECT_TRUE(dialog.visible());
  event([this] { dialog.myName.keyPress(13); });
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
