#include "desk/whole/TestDesk.h"
#include "generators/color/MxColorForm.h"

namespace korvane {
namespace {

/// The colour mixer as the desk has it, opened for the colour of an effect.
class DeskMixer : public TestDesk {
 protected:
  DeskMixer() {
    click(desk.form.tool);
    click(tool.panelA.add);
    pick(v.A.efxList, v.A.efxList.count() - 1);
    event([this] { v.A.type.choose(0); });
    openMixer();
  }

  void openMixer() {
    click(tool.panelA.edit);
    click(dialog.Color);
    ASSERT_TRUE(mixer.visible());
  }
  void type(const std::string& hex) {
    event([&] { parts.hex.setText(hex); });
  }
  void set(Slider& slider, int value) {
    event([&] { slider.setValue(value); });
  }
  /// Takes a colour by OK, and opens the mixer again.
  void use(const std::string& hex) {
    type(hex);
    click(mixer.Bok);
    click(dialog.Color);
  }
  std::string color() {
    return hexText(rgb(mixer.Sred.value(), mixer.Sgreen.value(), mixer.Sblue.value()));
  }
  std::vector<std::string> recent(const MixerParts& of) {
    std::vector<std::string> texts;
    for (const auto& box : of.recent) {
      if (box->look().visible) texts.push_back(hexText(box->backColor()));
    }
    return texts;
  }

  MxColorForm& dialog = plugin.engine.desktop.get<MxColorForm>();
  MxColorMixer& mixer = plugin.dialogs.mixer;
  MixerParts& parts = desk.mixer;
};

TEST_F(DeskMixer, TypedDigitsMoveTheSlidersAndTheColourIsTakenByOkAsOneStep) {
  type("#ff8000");
  EXPECT_EQ(color(), "FF8000");
  EXPECT_EQ(mixer.Presult.backColor(), rgb(255, 128, 0));
  click(mixer.Bok);
  EXPECT_EQ(v.A.effect().color1, rgb(255, 128, 0));
  EXPECT_EQ(dialog.Color.backColor(), rgb(255, 128, 0));
  click(desk.form.undo);
  EXPECT_NE(v.A.effect().color1, rgb(255, 128, 0));
}

TEST_F(DeskMixer, DigitsThatAreNoColourAreToldAndChangeNothing) {
  type("3366CC");
  type("33x6CC");
  EXPECT_EQ(color(), "3366CC");
  EXPECT_EQ(parts.said.look().caption, "no colour: digits as in FF8000");
  click(mixer.Bok);
  EXPECT_TRUE(mixer.visible());
  set(mixer.Sred, 255);
  EXPECT_EQ(parts.hex.text(), "FF66CC");
  EXPECT_EQ(parts.said.look().caption, "");
  click(mixer.Bok);
  EXPECT_FALSE(mixer.visible());
}

TEST_F(DeskMixer, WrongDigitsAreGoneWhenTheMixerOpensAgain) {
  type("nonsense");
  click(mixer.Bcancel);
  click(dialog.Color);
  EXPECT_EQ(parts.hex.text(), color());
  EXPECT_EQ(parts.said.look().caption, "");
}

TEST_F(DeskMixer, HueSaturationAndValueMoveTheSlidersAndFollowThem) {
  type("FF0000");
  set(parts.hue, 120);
  EXPECT_EQ(color(), "00FF00");
  set(parts.saturation, 50);
  EXPECT_EQ(color(), "80FF80");
  set(parts.value, 50);
  EXPECT_EQ(color(), "408040");
  EXPECT_EQ(parts.hex.text(), "408040");
  set(mixer.Sgreen, 0);
  set(mixer.Sblue, 0);
  EXPECT_EQ(parts.hue.value(), 0);
  EXPECT_EQ(parts.saturation.value(), 100);
  EXPECT_EQ(parts.value.value(), 25);
}

TEST_F(DeskMixer, AHueStaysWhereItWasSetThoughTheColourIsDark) {
  type("000000");
  set(parts.hue, 200);
  set(parts.saturation, 70);
  EXPECT_EQ(color(), "000000");
  set(parts.value, 100);
  EXPECT_EQ(parts.hue.value(), 200);
  EXPECT_EQ(parts.saturation.value(), 70);
  EXPECT_EQ(color(), hexText(colorOf({200, 70, 100})));
}

TEST_F(DeskMixer, ColoursThatWereTakenAreOfferedOnceEachTheNewestFirst) {
  EXPECT_TRUE(recent(parts).empty());
  EXPECT_FALSE(parts.lately.look().visible);
  for (const char* hex : {"110000", "220000", "330000", "110000"}) use(hex);
  EXPECT_EQ(recent(parts), (std::vector<std::string>{"110000", "330000", "220000"}));
  type("445566");
  click(mixer.Bcancel);
  EXPECT_EQ(recent(parts).size(), 3U);
  click(dialog.Color);
  click(*parts.recent[2]);
  EXPECT_EQ(color(), "220000");
}

TEST_F(DeskMixer, TwelveColoursAreKeptUntilTheNextStart) {
  for (int i = 1; i <= 14; ++i) use(hexText(rgb(i, 0, 0)));
  LampFeed other("korvane-tests-2");
  Desk again(machine, other, places());
  EXPECT_EQ(recent(again.mixer).size(), 12U);
  EXPECT_EQ(recent(again.mixer).front(), "0E0000");
  EXPECT_EQ(recent(again.mixer).back(), "030000");
}

}  // namespace
}  // namespace korvane
