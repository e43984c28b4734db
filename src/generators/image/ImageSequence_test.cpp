#include "generators/image/ImageCode.h"
#include "testing/ImageTest.h"

namespace korvane {
namespace {

using Boxes = std::vector<std::string>;

class ImageSequence : public ImageTest {
 protected:
  // Four pictures of one colour each, the size of a 2 x 2 grid.
  void listFour(const std::vector<double>& times) {
    list({picture("red", {"RR", "RR"}), picture("green", {"GG", "GG"}),
          picture("blue", {"BB", "BB"}), picture("white", {"WW", "WW"})},
         times);
  }
};
KORVANE_BOTH_DECKS(ImageSequence);

TEST_P(ImageSequence, AListOfOnePictureHasNoSequence) {
  openWithGrid(2, 2);
  list({picture("red", {"RR", "RR"})});
  ASSERT_TRUE(start());
  EXPECT_FALSE(deck.timer2.enabled());
}

TEST_P(ImageSequence, PicturesFollowEachOtherAtTheirTimes) {
  openWithGrid(2, 2);
  list(
      {picture("red", {"RR", "RR"}), picture("green", {"GG", "GG"}), picture("blue", {"BB", "BB"})},
      {1, 2, 0.5});
  ASSERT_TRUE(start());
  EXPECT_EQ(deck.timer2.interval(), 1000);
  expectPicture(deck.frame, {"RR", "RR"});
  struct Next {
    int after, interval;
    const char* row;
  };
  for (const Next& next : {Next{1000, 2000, "GG"}, {2000, 500, "BB"}, {500, 1000, "RR"}}) {
    advance(next.after - 1);
    const Frame before = deck.frame;
    advance(1);
    EXPECT_NE(rgb(deck.frame.at(0, 0)), rgb(before.at(0, 0)));
    EXPECT_EQ(deck.timer2.interval(), next.interval);
    expectPicture(deck.frame, {next.row, next.row});
  }
}

TEST_P(ImageSequence, TimesAreRoundedToMillisecondsTiesToEven) {
  openWithGrid(2, 2);
  listFour({0.0105, 0.0125, 0.0135, 1});
  for (const auto& [index, interval] : {std::pair{0, 10}, {1, 12}, {2, 14}, {3, 1000}}) {
    holdImage(deck, index);
    EXPECT_EQ(deck.timer2.interval(), interval);
  }
}

TEST_P(ImageSequence, ATravelGoesOnWhileThePicturesChange) {
  openWithGrid(2, 1);
  list({picture("wide", {"RGBYW"}), picture("other", {"MCMCM"})}, {0.12, 10});
  deck.effect().direction = 3;
  deck.effect().speed = 100;
  ASSERT_TRUE(start());
  advance(50);
  expectPicture(deck.frame, {"GB"});
  advance(50);
  expectPicture(deck.frame, {"BY"});
  advance(20);
  expectPicture(deck.frame, {"MC"});
  // The new picture arms the step timer anew.
  advance(50);
  expectPicture(deck.frame, {"CM"});
}

TEST_P(ImageSequence, TheNextPictureStartsAtTheOffsetOnTheLeftAndAtTheCornerOnTheRight) {
  openWithGrid(2, 1);
  list({picture("first", {"RRRRR"}), picture("second", {"RGBYWM", "CCCCCC"})});
  deck.effect().amount = 50;
  ASSERT_TRUE(start());
  advance(1000);
  expectPicture(deck.frame, {deck.isB() ? "RG" : "BY"});
  EXPECT_EQ(deck.imagePosX, deck.isB() ? 0 : 2);
}

TEST_P(ImageSequence, OnTheRightTheNextPictureKeepsTheLimitOfTheOneBefore) {
  openWithGrid(2, 2);
  list({picture("first", Raster(7, 7)), picture("second", Raster(9, 9))});
  deck.effect().direction = 2;
  ASSERT_TRUE(start());
  EXPECT_EQ(deck.scrollLength, 7);
  EXPECT_EQ(deck.imagePosX, -1);
  advance(1000);
  EXPECT_EQ(deck.scrollLength, deck.isB() ? 7 : 9);
  EXPECT_EQ(deck.imagePosX, deck.isB() ? 0 : -1);
  EXPECT_EQ(deck.imagePosY, deck.isB() ? 0 : -1);
}

TEST_P(ImageSequence, AMissingFirstFileKeepsThePictureBefore) {
  openWithGrid(2, 1);
  list({picture("red", {"RR"})});
  ASSERT_TRUE(start());
  deck.effect().imageFiles[0] = folder + "/gone";
  ASSERT_TRUE(start());
  expectPicture(deck.frame, {"RR"});
  EXPECT_EQ(takeBoxes(), Boxes{});
  event([&] { deck.type.setIndex(kColor); });
  event([&] { deck.type.setIndex(kImage); });
  EXPECT_EQ(takeBoxes(), Boxes{"File not found ! Please edit effect !"});
  expectPicture(deck.frame, {"RR"});
}

// What can happen to a file in the middle of a show; each is told once.
class BrokenImageSequence : public ImageTest {
 protected:
  void SetUp() override {
    openWithGrid(2, 1);
    list({picture("wide", {"RGBYW"}), picture("second", {"MM"}), picture("third", {"CC"})});
    deck.effect().direction = 3;
    deck.effect().speed = 50;
    ASSERT_TRUE(start());
  }
  void expectTravelGoesOn() {
    const int before = deck.imagePosX;
    advance(2050);
    EXPECT_EQ(deck.imagePosX, before + 1);
  }
  const std::string second_ = folder + "/second";
};
KORVANE_BOTH_DECKS(BrokenImageSequence);

TEST_P(BrokenImageSequence, AFileThatVanishesEndsTheSequenceWithOneMessage) {
  std::filesystem::remove(second_);
  advance(1000);
  EXPECT_EQ(takeBoxes(), Boxes{"File not found: " + second_});
  expectPicture(deck.frame, {"RG"});
  EXPECT_EQ(deck.effect().imageCount, 0);
  EXPECT_FALSE(deck.timer2.enabled());
  expectTravelGoesOn();
  advance(60000);
  EXPECT_EQ(takeBoxes(), Boxes{});
  EXPECT_EQ(takeFailure(), 0);
}

TEST_P(BrokenImageSequence, AFolderInItsPlaceIsNoFile) {
  std::filesystem::remove(second_);
  std::filesystem::create_directory(second_);
  advance(1000);
  EXPECT_EQ(takeBoxes(), Boxes{"File not found: " + second_});
  EXPECT_EQ(deck.effect().imageCount, 0);
  expectTravelGoesOn();
}

TEST_P(BrokenImageSequence, AFileThatCanNotBeReadEndsTheTickWithOneFailure) {
  platform.pictures.erase(second_);
  advance(1000);
  ASSERT_EQ(platform.failures.size(), 1U);
  EXPECT_EQ(platform.failures[0].number, kInvalidPicture);
  EXPECT_NE(std::string(platform.failures[0].what()).find(second_), std::string::npos);
  EXPECT_EQ(takeBoxes(), Boxes{});
  EXPECT_EQ(deck.effect().imageCount, 3) << "nothing of the effect is lost";
  EXPECT_FALSE(deck.timer2.enabled());
  expectTravelGoesOn();
  advance(60000);
  EXPECT_EQ(platform.failures.size(), 1U);
}

TEST_P(BrokenImageSequence, ATickAfterTheEndOfTheSequenceDoesNothing) {
  deck.effect().imageCount = 0;
  deck.effect().imageFiles.clear();
  advance(1000);
  EXPECT_EQ(takeFailure(), 0);
  EXPECT_FALSE(deck.timer2.enabled());
}

}  // namespace
}  // namespace korvane
