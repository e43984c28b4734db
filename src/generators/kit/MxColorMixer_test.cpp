#include "generators/kit/MxColorMixer.h"

#include "testing/TestPlugin.h"

namespace korvane {
namespace {

class ColorMixer : public TestPlugin {
 protected:
  void SetUp() override { ASSERT_TRUE(open()); }
  void openAt(Color color) {
    event([&] { pickColor(engine, color, [this](Color c) { picked = c; }); });
  }
  void clickStrip(PictureBox& strip, int x, int y) {
    event([&] {
      strip.mouse(PictureBox::Mouse::Down, x, y);
      strip.mouse(PictureBox::Mouse::Up, x, y);
      strip.mouse(PictureBox::Mouse::Click, x, y);
    });
  }

  MxColorMixer& mixer = plugin.dialogs.mixer;
  Color picked = -1;
};

TEST_F(ColorMixer, HasItsTextsRangesAndStrips) {
  EXPECT_EQ(mixer.caption(), "ColorMixer");
  const std::pair<const Slider*, const char*> sliders[] = {
      {&mixer.Sred, "Red"}, {&mixer.Sgreen, "Green"}, {&mixer.Sblue, "Blue"}};
  for (const auto& [slider, caption] : sliders) {
    EXPECT_EQ(slider->look().caption, caption);
    EXPECT_EQ(slider->min(), 0);
    EXPECT_EQ(slider->max(), 255);
  }
  for (const PictureBox* strip : {&mixer.Pred, &mixer.Pgreen, &mixer.Pblue}) {
    EXPECT_EQ(strip->width(), 28);
    EXPECT_EQ(strip->height(), 128);
  }
  EXPECT_EQ(mixer.Presult.look().caption, "Result");
  EXPECT_EQ(mixer.Bcancel.look().caption, "Cancel");
}

TEST_F(ColorMixer, OpensAtTheCallersColourAndReturnsTheMixedOne) {
  openAt(rgb(10, 20, 30));
  EXPECT_EQ(mixer.Sred.value(), 10);
  EXPECT_EQ(mixer.Sgreen.value(), 20);
  EXPECT_EQ(mixer.Sblue.value(), 30);
  move(mixer.Sblue, 99);
  EXPECT_EQ(mixer.Presult.backColor(), rgb(10, 20, 99));
  EXPECT_EQ(picked, -1);
  click(mixer.Bok);
  EXPECT_EQ(picked, rgb(10, 20, 99));
  EXPECT_FALSE(mixer.visible());
}

TEST_F(ColorMixer, CancelReturnsTheColourBefore) {
  openAt(rgb(10, 20, 30));
  move(mixer.Sblue, 99);
  click(mixer.Bcancel);
  EXPECT_EQ(picked, rgb(10, 20, 30));
}

TEST_F(ColorMixer, ItsFramesCloseButtonIsACancel) {
  openAt(rgb(10, 20, 30));
  move(mixer.Sblue, 99);
  event([&] { engine.desktop.close(mixer); });
  EXPECT_EQ(picked, rgb(10, 20, 30));
}

TEST_F(ColorMixer, CancelAfterACallerThatStoredNoColourReturnsThatOfAnEarlierUse) {
  openAt(rgb(1, 2, 3));
  click(mixer.Bok);
  event([&] { mixer.open(rgb(0, 0, 0), [this](Color c) { picked = c; }); });
  click(mixer.Bcancel);
  EXPECT_EQ(picked, rgb(1, 2, 3));
}

TEST_F(ColorMixer, StripsRunFromZeroAtTheBottomToTwoHundredAndFiftyFourAtTheTop) {
  openAt(rgb(100, 20, 30));
  const Raster& strip = mixer.Pred.raster();
  for (int i = 0; i <= 127; ++i) {
    const Color expected = i == 50 ? rgb(255, 255, 255) : rgb(2 * i, 20, 30);  // 50: the marker
    ASSERT_EQ(strip.pixel(0, 127 - i), expected) << i;
    ASSERT_EQ(strip.pixel(27, 127 - i), expected) << i;
  }
  EXPECT_EQ(mixer.Pgreen.raster().pixel(5, 0), rgb(100, 254, 30));
  EXPECT_EQ(mixer.Pblue.raster().pixel(5, 127), rgb(100, 20, 0));
}

TEST_F(ColorMixer, MarkerIsWhiteUpToTheMiddleGreyAndBlackAboveIt) {
  openAt(rgb(128, 128, 128));
  EXPECT_EQ(mixer.Pred.raster().pixel(0, 127 - 64), rgb(255, 255, 255));
  click(mixer.Bok);
  openAt(rgb(129, 129, 129));
  EXPECT_EQ(mixer.Pred.raster().pixel(0, 62), rgb(0, 0, 0));  // 127 - 64.5, to the even line
}

TEST_F(ColorMixer, AFullSliderPutsItsMarkerOnTheTopEdge) {
  openAt(rgb(255, 0, 0));
  EXPECT_EQ(mixer.Pred.raster().pixel(0, 0), rgb(255, 255, 255));
}

TEST_F(ColorMixer, AClickOnAStripTakesItsEvenValue) {
  openAt(rgb(0, 0, 0));
  clickStrip(mixer.Pgreen, 14, 27);
  EXPECT_EQ(mixer.Sgreen.value(), 200);
  EXPECT_EQ(mixer.Sred.value(), 0);
}

TEST_F(ColorMixer, AClickOnTheMarkerTakesTheMarkersComponent) {
  openAt(rgb(100, 20, 30));
  clickStrip(mixer.Pred, 14, 127 - 50);
  EXPECT_EQ(mixer.Sred.value(), 255);
}

TEST_F(ColorMixer, SystemColoursAreTakenApart) {
  openAt(static_cast<Color>(0x8000000DU));
  const Rgb highlight = colorParts(systemColor(13));
  EXPECT_EQ(mixer.Sred.value(), highlight[0]);
  EXPECT_EQ(mixer.Sgreen.value(), highlight[1]);
  EXPECT_EQ(mixer.Sblue.value(), highlight[2]);
}

}  // namespace
}  // namespace korvane
