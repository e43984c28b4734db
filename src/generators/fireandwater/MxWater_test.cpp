#include "generators/fireandwater/MxWater.h"

#include "testing/CellEffects.h"
#include "testing/Drawing.h"

namespace korvane {
namespace {

class WaterDialog : public CellEffects {
 protected:
  void SetUp() override {
    CellEffects::SetUp();
    event([this] { deck.type.setIndex(kFluid); });  // by no person
    effect().name = "creek";
    click(panel.edit);
  }
  void expectPressed(int direction) {
    for (const int index : {1, 3, 5, 7})
      EXPECT_EQ(dialog.richtung.button(index).pressed(), index == direction) << index;
  }

  MxWater& dialog = plugin.window<MxWater>();
};
KORVANE_BOTH_DECKS(WaterDialog);

TEST_P(WaterDialog, ShowsTheRecord) {
  EXPECT_TRUE(dialog.visible());
  EXPECT_FALSE(dialog.modal());
  EXPECT_EQ(dialog.caption(), "Water");
  EXPECT_EQ(dialog.myName.text(), "creek");
  EXPECT_EQ(dialog.Color1.backColor(), rgb(0, 0, 255));
  EXPECT_EQ(dialog.Color2.backColor(), rgb(255, 255, 255));
  EXPECT_EQ(dialog.slIntensity.value(), 40);
  EXPECT_EQ(dialog.slSpeed.value(), 80);
  expectPressed(5);
}

TEST_P(WaterDialog, HasItsTexts) {
  EXPECT_EQ(dialog.myName.look().label, "Name : ");
  EXPECT_EQ(dialog.Color1.look().label, "MainColor : ");
  EXPECT_EQ(dialog.Color2.look().label, "Secondary Color : ");
  EXPECT_EQ(dialog.slIntensity.look().label, "Roughness : ");
  EXPECT_EQ(dialog.slIntensity.look().toolTip, "fire height");
  EXPECT_EQ(dialog.slSpeed.look().label, "Speed : ");
  EXPECT_EQ(dialog.slSpeed.look().toolTip, "slow - fast");
  EXPECT_EQ(dialog.directionLabel.look().caption, "Direction : ");
}

TEST_P(WaterDialog, SlidersActOnTheRunningDeck) {
  takeCalls();
  move(dialog.slIntensity, 90);
  EXPECT_EQ(effect().amount, 90);
  move(dialog.slSpeed, 100);
  EXPECT_EQ(effect().speed, 100);
  EXPECT_EQ(deck.timer1.interval(), 50);
  EXPECT_TRUE(takeCalls().empty()) << "no step is run";
}

TEST_P(WaterDialog, APickedColourWaitsForTheNextLine) {
  const Frame before = deck.frame;
  for (ColorBox* box : {&dialog.Color1, &dialog.Color2}) {
    event([box] { box->click(); });
    move(plugin.dialogs.mixer.Sred, 17);
    takeCalls();
    click(plugin.dialogs.mixer.Bok);
    EXPECT_TRUE(takeCalls().empty()) << box->name();
  }
  EXPECT_EQ(effect().color1, rgb(17, 0, 255));
  EXPECT_EQ(effect().color2, rgb(17, 255, 255));
  for (int col = 0; col < 12; ++col) {
    for (int row = 0; row < 12; ++row) EXPECT_EQ(deck.frame.at(col, row), before.at(col, row));
  }
}

TEST_P(WaterDialog, ADirectionTakesAStepAtOnce) {
  struct Case {
    int direction;
    int steps;  // of the grid's other side; nothing reads them
    Drawing after;
  };
  const Drawing before = {"RGYG",  //
                          "CMWM"};
  const std::vector<Case> cases = {{1, 2, {"CMWM", "BBBB"}},
                                   {3, 4, {"GYGB", "MWMB"}},
                                   {5, 2, {"BBBB", "RGYG"}},
                                   {7, 4, {"BRGY", "BCMW"}}};
  effect().amount = 0;
  for (const Case& c : cases) {
    dimension(4, 2);
    deck.frame = frameOf(before);
    deck.step = 9;
    click(dialog.richtung.button(c.direction));
    expectPressed(c.direction);
    expectPicture(deck.frame, c.after);
    EXPECT_EQ(effect().direction, c.direction);
    EXPECT_EQ(deck.steps, c.steps);
    EXPECT_EQ(deck.step, 0);
  }
}

TEST_P(WaterDialog, OKMarksNamesAndHides) {
  type(dialog.myName, "river");
  event([this] { dialog.myName.keyPress(13); });
  EXPECT_EQ(effect().name, "river");
  EXPECT_EQ(texts(deck.efxList).at(0), "river");
  EXPECT_TRUE(deck.efxEdited.at(0));
  EXPECT_FALSE(dialog.visible());
}

}  // namespace
}  // namespace korvane
