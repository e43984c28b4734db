#include "generators/image/MxImageForm.h"

#include "generators/image/MxImageList.h"
#include "testing/ImageTest.h"

namespace korvane {
namespace {

using Boxes = std::vector<std::string>;

class ImageDialog : public ImageTest {
 protected:
  void SetUp() override {
    openWithGrid(2, 1);
    wide_ = picture("wide", {"RGBYW"});
    list({wide_});
    deck.effect().speed = 50;
    ASSERT_TRUE(start());
  }
  void edit() { ASSERT_TRUE(click(panel.edit)); }
  bool check(CheckBox& box, int value) {
    return event([&] { box.setValue(value); });
  }
  bool direct(int index) { return click(form.richtung.button(index)); }

  MxImageForm& form = plugin.window<MxImageForm>();
  std::string wide_;
};
KORVANE_BOTH_DECKS(ImageDialog);

TEST_P(ImageDialog, OpensWithTheRecordsValues) {
  Effect& effect = deck.effect();
  effect.name = "holiday";
  effect.direction = 4;
  effect.imageStretch = 1;
  effect.imageTile = 1;
  effect.speed = 70;
  effect.amount = 20;
  edit();
  EXPECT_TRUE(form.visible());
  EXPECT_FALSE(form.modal());
  EXPECT_EQ(form.caption(), "Images");
  EXPECT_EQ(form.myName.text(), "holiday");
  EXPECT_TRUE(form.richtung.button(4).pressed());
  EXPECT_EQ(form.PStretch.value(), 1);
  EXPECT_EQ(form.PTile.value(), 1);
  EXPECT_EQ(form.Slider1.value(), 70);
  EXPECT_EQ(form.slOffset.value(), 20);
  EXPECT_EQ(effect.imageStretch, 1);
  EXPECT_EQ(effect.speed, 70);
}

TEST_P(ImageDialog, AStoredDirectionAbove8BecomesNone) {
  deck.effect().direction = 9;
  edit();
  EXPECT_EQ(deck.effect().direction, 0);
  EXPECT_TRUE(form.richtung.button(0).pressed());
}

TEST_P(ImageDialog, ADirectionShowsItsButtonAndStartsTheTravel) {
  deck.effect().amount = 50;
  edit();
  ASSERT_TRUE(direct(5));
  EXPECT_EQ(deck.effect().direction, 5);
  EXPECT_TRUE(form.richtung.button(5).pressed());
  EXPECT_FALSE(form.richtung.button(0).pressed());
  EXPECT_EQ(deck.imagePosX, 1);
  EXPECT_EQ(deck.imagePosY, -1);
  EXPECT_TRUE(deck.timer1.enabled());
  ASSERT_TRUE(direct(0));
  EXPECT_EQ(deck.effect().direction, 0);
  EXPECT_FALSE(deck.timer1.enabled());
}

TEST_P(ImageDialog, ADirectionStartsTheTimerAtAnySpeed) {
  deck.effect().speed = 0;
  edit();
  ASSERT_TRUE(direct(3));
  EXPECT_TRUE(deck.timer1.enabled());
}

TEST_P(ImageDialog, ADirectionWithoutPicturesStartsNothing) {
  list({});
  edit();
  deck.timer1.enable();
  ASSERT_TRUE(direct(3));
  EXPECT_EQ(takeBoxes(), Boxes{"No Pictures in List. Please edit preset"});
  EXPECT_FALSE(deck.timer1.enabled());
}

TEST_P(ImageDialog, StretchingStopsTheTravelAndADirectionDoesNotStartIt) {
  edit();
  ASSERT_TRUE(direct(3));
  ASSERT_TRUE(check(form.PStretch, 1));
  EXPECT_EQ(deck.effect().imageStretch, 1);
  EXPECT_FALSE(deck.timer1.enabled());
  expectPicture(deck.frame, {"RB"});
  ASSERT_TRUE(direct(7));
  EXPECT_FALSE(deck.timer1.enabled());
  ASSERT_TRUE(check(form.PStretch, 0));
  EXPECT_EQ(deck.effect().imageStretch, 0);
  EXPECT_TRUE(deck.timer1.enabled());
}

TEST_P(ImageDialog, TilingShowsAtOnce) {
  list({picture("dot", {"M"})});
  ASSERT_TRUE(start());
  expectPicture(deck.frame, {"M."});
  edit();
  ASSERT_TRUE(check(form.PTile, 1));
  EXPECT_EQ(deck.effect().imageTile, 1);
  expectPicture(deck.frame, {"MM"});
}

TEST_P(ImageDialog, TheSpeedSetsTheIntervalAtOnce) {
  edit();
  ASSERT_TRUE(direct(3));
  move(form.Slider1, 100);
  EXPECT_EQ(deck.effect().speed, 100);
  EXPECT_EQ(deck.timer1.interval(), 50);
  advance(50);
  expectPicture(deck.frame, {"GB"});
}

TEST_P(ImageDialog, TheOffsetMovesTheWindowAtOnce) {
  edit();
  move(form.slOffset, 100);
  EXPECT_EQ(deck.effect().amount, 100);
  expectPicture(deck.frame, {"YW"});
}

TEST_P(ImageDialog, OKStoresNameSpeedAndOffsetAndRestartsTheShow) {
  list({wide_, picture("second", {"MM"})}, {3, 4});
  edit();
  type(form.myName, "holiday");
  move(form.slOffset, 50);
  deck.imagePosX = 0;
  deck.timer2.disable();
  ASSERT_TRUE(click(form.OK));
  EXPECT_FALSE(form.visible());
  EXPECT_TRUE(deck.efxEdited[0]);
  EXPECT_EQ(deck.effect().name, "holiday");
  EXPECT_EQ(texts(deck.efxList), Boxes{"holiday"});
  EXPECT_EQ(deck.effect().amount, 50);
  EXPECT_TRUE(deck.timer2.enabled());
  EXPECT_EQ(deck.timer2.interval(), 3000);
  expectPicture(deck.frame, {"GB"});
}

TEST_P(ImageDialog, OKWithOnePictureLeavesTheSequenceTimerAlone) {
  edit();
  ASSERT_TRUE(click(form.OK));
  EXPECT_FALSE(deck.timer2.enabled());
  EXPECT_EQ(deck.timer2.interval(), 1000);
}

TEST_P(ImageDialog, EnterInTheNameActsAsOK) {
  edit();
  event([&] { form.myName.keyPress(13); });
  EXPECT_FALSE(form.visible());
  EXPECT_TRUE(deck.efxEdited[0]);
}

TEST_P(ImageDialog, CancelRestoresTheRecordOnTheRightAndEmptiesItOnTheLeft) {
  deck.effect().name = "holiday";
  edit();
  move(form.slOffset, 100);
  ASSERT_TRUE(check(form.PTile, 1));
  list({});
  ASSERT_TRUE(click(form.Cancel));
  EXPECT_FALSE(form.visible());
  EXPECT_EQ(deck.effect().imageTile, 0);
  EXPECT_EQ(deck.effect().amount, 0);
  EXPECT_FALSE(deck.efxEdited[0]);
  if (deck.isB()) {
    EXPECT_EQ(form.myName.text(), "holiday");
    EXPECT_EQ(deck.effect().imageFiles, Boxes{wide_});
    EXPECT_EQ(deck.effect().speed, 50);
    EXPECT_EQ(takeBoxes(), Boxes{});
  } else {
    EXPECT_EQ(form.myName.text(), "");
    EXPECT_EQ(deck.effect().imageCount, 0);
    EXPECT_EQ(takeBoxes(), Boxes{"No Pictures in List. Please edit preset"});
    expectPicture(deck.frame, {".."});
  }
  EXPECT_EQ(deck.effect().name, "holiday") << "the record's own name is not touched";
}

TEST_P(ImageDialog, CancelOnTheLeftEndsARunningShowQuietly) {
  list({wide_, picture("second", {"MM"})});
  ASSERT_TRUE(start());
  edit();
  ASSERT_TRUE(click(form.Cancel));
  advance(5000);
  EXPECT_EQ(takeFailure(), 0);
  EXPECT_EQ(deck.timer2.enabled(), deck.isB());
}

TEST_P(ImageDialog, ItsListClosesWhenAnEffectIsOpened) {
  edit();
  ASSERT_TRUE(click(form.BImage));
  EXPECT_TRUE(plugin.window<MxImageList>().visible());
  EXPECT_FALSE(plugin.window<MxImageList>().modal());
  edit();
  EXPECT_FALSE(plugin.window<MxImageList>().visible());
}

TEST_P(ImageDialog, EveryControlSaysWhatItIsFor) {
  for (const Form* window :
       {static_cast<const Form*>(&form), static_cast<const Form*>(&plugin.window<MxImageList>())}) {
    for (const Control* control : window->controls())
      EXPECT_NE(control->look().toolTip, "") << control->name();
  }
}

}  // namespace
}  // namespace korvane
