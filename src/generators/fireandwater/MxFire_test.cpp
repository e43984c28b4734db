#include "generators/fireandwater/MxFire.h"

#include "testing/CellEffects.h"

namespace korvane {
namespace {

class FireDialog : public CellEffects {
 protected:
  void SetUp() override {
    CellEffects::SetUp();
    event([this] { deck.type.setIndex(kFire); });  // by no person
    effect().name = "camp";
    click(panel.edit);
  }
  void pick(ColorBox& box, int red) {
    event([&] { box.click(); });
    move(plugin.dialogs.mixer.Sred, red);
    click(plugin.dialogs.mixer.Bok);
  }

  MxFire& dialog = plugin.window<MxFire>();
};
KORVANE_BOTH_DECKS(FireDialog);

TEST_P(FireDialog, ShowsTheRecord) {
  EXPECT_TRUE(dialog.visible());
  EXPECT_FALSE(dialog.modal());
  EXPECT_EQ(dialog.caption(), "Fire");
  EXPECT_EQ(dialog.myName.text(), "camp");
  EXPECT_EQ(dialog.Color1.backColor(), rgb(255, 255, 0));
  EXPECT_EQ(dialog.Color2.backColor(), rgb(255, 0, 0));
  EXPECT_EQ(dialog.slIntensity.value(), 30);
  EXPECT_EQ(dialog.slSpeed.value(), 80);
}

TEST_P(FireDialog, HasItsTexts) {
  EXPECT_EQ(dialog.myName.look().label, "Name : ");
  EXPECT_EQ(dialog.Color1.look().label, "MainColor : ");
  EXPECT_EQ(dialog.Color2.look().label, "Secondary Color : ");
  EXPECT_EQ(dialog.slIntensity.look().label, "Intensity : ");
  EXPECT_EQ(dialog.slIntensity.look().toolTip, "fire height");
  EXPECT_EQ(dialog.slSpeed.look().label, "Speed : ");
  EXPECT_EQ(dialog.slSpeed.look().toolTip, "slow - fast");
}

TEST_P(FireDialog, IntensityIsStoredForTheNextStep) {
  takeCalls();
  move(dialog.slIntensity, 70);
  EXPECT_EQ(effect().amount, 70);
  EXPECT_TRUE(takeCalls().empty());
}

TEST_P(FireDialog, SpeedSetsTheIntervalAtOnce) {
  struct Case {
    int speed;
    std::int32_t interval;
  };
  for (const Case& c : {Case{100, 50}, {0, 4050}, {80, 210}, {99, 50}, {50, 1050}, {1, 3970}}) {
    move(dialog.slSpeed, c.speed);
    EXPECT_EQ(effect().speed, c.speed);
    EXPECT_EQ(deck.timer1.interval(), c.interval) << "speed " << c.speed;
  }
}

// About a third of the cells is repainted at once.
TEST_P(FireDialog, APickedColourRunsAStep) {
  deck.timer1.disable();
  fill(rgb(1, 2, 3));
  pick(dialog.Color1, 17);
  EXPECT_EQ(effect().color1, rgb(17, 255, 0));
  EXPECT_EQ(dialog.Color1.backColor(), rgb(17, 255, 0));
  int kept = 0;
  for (int col = 0; col < 12; ++col) {
    for (int row = 0; row < 12; ++row) kept += deck.frame.at(col, row) == Rgb{1, 2, 3} ? 1 : 0;
  }
  EXPECT_EQ(kept, 96);
  fill(rgb(1, 2, 3));
  pick(dialog.Color2, 200);
  EXPECT_EQ(effect().color2, rgb(200, 0, 0));
  EXPECT_TRUE(deck.frame.at(0, 0) != (Rgb{1, 2, 3}) || deck.frame.at(1, 0) != (Rgb{1, 2, 3}) ||
              deck.frame.at(2, 0) != (Rgb{1, 2, 3}));
}

TEST_P(FireDialog, OKMarksNamesAndHides) {
  type(dialog.myName, "bonfire");
  EXPECT_EQ(effect().name, "camp");
  click(dialog.OK);
  EXPECT_EQ(effect().name, "bonfire");
  EXPECT_EQ(texts(deck.efxList).at(0), "bonfire");
  EXPECT_TRUE(deck.efxEdited.at(0));
  EXPECT_FALSE(dialog.visible());
}

TEST_P(FireDialog, EnterInTheNameIsOK) {
  event([this] { dialog.myName.keyPress(65); });
  EXPECT_TRUE(dialog.visible());
  event([this] { dialog.myName.keyPress(13); });
  EXPECT_FALSE(dialog.visible());
}

}  // namespace
}  // namespace korvane
