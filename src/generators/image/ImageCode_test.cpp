#include "generators/image/ImageCode.h"

#include "testing/ImageTest.h"

namespace korvane {
namespace {

using Boxes = std::vector<std::string>;

class ImageShow : public ImageTest {
 protected:
  void place(int direction, int amount) {
    deck.effect().direction = static_cast<std::int16_t>(direction);
    deck.effect().amount = static_cast<std::int16_t>(amount);
    placeImage(engine, deck);
  }
};
KORVANE_BOTH_DECKS(ImageShow);

TEST_P(ImageShow, ASmallerPictureStandsInTheCornerOnBlack) {
  openWithGrid(4, 3);
  list({picture("small", {"RG", "BY"})});
  ASSERT_TRUE(start());
  expectPicture(deck.frame, {"RG..",  //
                             "BY..",  //
                             "...."});
}

TEST_P(ImageShow, ATiledPictureCoversTheMatrixWithWholeRepeatsAndACutOne) {
  openWithGrid(5, 3);
  list({picture("small", {"RG", "BY"})});
  deck.effect().imageTile = 1;
  ASSERT_TRUE(start());
  expectPicture(deck.frame, {"RGRGR",  //
                             "BYBYB",  //
                             "RGRGR"});
  EXPECT_EQ(deck.image.width(), 5) << "the loaded picture itself is widened";
  EXPECT_EQ(deck.image.height(), 3);
}

TEST_P(ImageShow, ATiledPictureRepeatsOnlyAlongTheSideThatIsShort) {
  openWithGrid(4, 2);
  list({picture("tall", {"RG", "BY", "WW"})});
  deck.effect().imageTile = 1;
  deck.effect().amount = 100;
  deck.effect().direction = 3;
  ASSERT_TRUE(start());
  EXPECT_EQ(deck.image.width(), 4);
  EXPECT_EQ(deck.image.height(), 3);
  EXPECT_EQ(deck.imagePosX, 0) << "tiling across starts at the left edge";
  EXPECT_EQ(deck.imagePosY, -2) << "the height is not tiled, so the start stays";
  expectPicture(deck.frame, {"....", "...."});
}

TEST_P(ImageShow, ATiledPictureThatIsLargeEnoughKeepsItsPlace) {
  openWithGrid(2, 2);
  list({picture("large", {"RGBY", "WMCR", "BBGG"})});
  deck.effect().imageTile = 1;
  deck.effect().amount = 100;
  ASSERT_TRUE(start());
  EXPECT_EQ(deck.imagePosX, 2);
  expectPicture(deck.frame, {"BY", "CR"});
}

TEST_P(ImageShow, AWidenedPictureStaysWidenedUntilItIsLoadedAgain) {
  openWithGrid(4, 1);
  list({picture("small", {"RG"})});
  deck.effect().imageTile = 1;
  ASSERT_TRUE(start());
  deck.effect().imageTile = 0;
  prepareImage(engine, deck);
  expectPicture(deck.frame, {"RGRG"});
  ASSERT_TRUE(start());
  expectPicture(deck.frame, {"RG.."});
}

TEST_P(ImageShow, AStretchedPictureKeepsTheNearestPixelsAndNeverTravels) {
  openWithGrid(4, 2);
  list({picture("wide", {"RGBYRGBY", "WWWWWWWW", "MMMMMMMM", "CCCCCCCC"})});
  deck.effect().imageStretch = 1;
  deck.effect().direction = 3;
  deck.effect().speed = 100;
  deck.timer1.enable();
  prepareImage(engine, deck);
  ASSERT_TRUE(start());
  expectPicture(deck.frame, {"RBRB",  //
                             "MMMM"});
  EXPECT_FALSE(deck.timer1.enabled());
  list({picture("small", {"RG"})});
  ASSERT_TRUE(start());
  expectPicture(deck.frame, {"RRGG", "RRGG"});
}

TEST_P(ImageShow, APictureOfTheMatrixsSizeHasNoSpareWidth) {
  openWithGrid(12, 12);
  deck.image.setRaster(Raster(12, 12));
  for (const int amount : {0, 1, 50, 100}) {
    place(1, amount);
    EXPECT_EQ(deck.imagePosX, 0);
    EXPECT_EQ(deck.imagePosY, 0);
  }
}

TEST_P(ImageShow, FullOffsetOf100PixelsOver12CellsIs88) {
  openWithGrid(12, 12);
  deck.image.setRaster(Raster(100, 40));
  place(1, 100);
  EXPECT_EQ(deck.imagePosX, 88);
  place(0, 50);
  EXPECT_EQ(deck.imagePosX, 44);
}

TEST_P(ImageShow, TheOffsetOfASmallerPictureIsFlooredBelowZero) {
  openWithGrid(12, 12);
  deck.image.setRaster(Raster(9, 9));
  place(1, 50);
  EXPECT_EQ(deck.imagePosX, -2);
}

TEST_P(ImageShow, TravelStartsWhereTheDirectionSays) {
  openWithGrid(12, 10);
  deck.image.setRaster(Raster(100, 40));
  const int starts[9][2] = {{44, 0},  {44, 0},  {33, -9}, {0, 44}, {33, 39},
                            {44, 29}, {55, 39}, {87, 44}, {55, -9}};
  for (int direction = 0; direction <= 8; ++direction) {
    place(direction, 50);
    EXPECT_EQ(deck.imagePosX, starts[direction][0]) << direction;
    EXPECT_EQ(deck.imagePosY, starts[direction][1]) << direction;
  }
}

TEST_P(ImageShow, TheDiagonalLimitIsTheSideThatHasLessToSpare) {
  openWithGrid(4, 4);
  deck.image.setRaster(Raster(20, 30));
  place(2, 0);
  EXPECT_EQ(deck.scrollLength, 20);
  deck.image.setRaster(Raster(20, 20));
  place(2, 0);
  EXPECT_EQ(deck.scrollLength, 20);
  deck.image.setRaster(Raster(30, 20));
  place(2, 0);
  EXPECT_EQ(deck.scrollLength, 20);
}

TEST_P(ImageShow, Direction9StandsStillWhereTheWindowWasBefore) {
  openWithGrid(2, 1);
  list({picture("wide", {"RGBYW"})});
  deck.effect().direction = 9;
  deck.effect().speed = 100;
  deck.imagePosX = 2;
  deck.imagePosY = 0;
  ASSERT_TRUE(start());
  expectPicture(deck.frame, {"BY"});
  EXPECT_FALSE(deck.timer1.enabled());
  advance(10000);
  expectPicture(deck.frame, {"BY"});
}

TEST_P(ImageShow, AtSpeed0TheWindowDoesNotMove) {
  openWithGrid(2, 1);
  list({picture("wide", {"RGBYW"})});
  deck.effect().direction = 3;
  deck.effect().speed = 0;
  ASSERT_TRUE(start());
  EXPECT_FALSE(deck.timer1.enabled());
  advance(60000);
  expectPicture(deck.frame, {"RG"});
}

TEST_P(ImageShow, TheStepIntervalFollowsTheSpeed) {
  openWithGrid(2, 1);
  list({picture("wide", {"RGBYW"})});
  deck.effect().direction = 3;
  for (const auto& [speed, interval] : {std::pair{100, 50}, {50, 2050}, {1, 7891}, {99, 51}}) {
    deck.effect().speed = static_cast<std::int16_t>(speed);
    ASSERT_TRUE(start());
    EXPECT_TRUE(deck.timer1.enabled());
    EXPECT_EQ(deck.timer1.interval(), interval) << "speed " << speed;
  }
}

TEST_P(ImageShow, AMovingPictureRunsThroughItsSeam) {
  openWithGrid(3, 1);
  list({picture("wide", {"RGBYW"})});
  deck.effect().direction = 3;
  deck.effect().speed = 100;
  ASSERT_TRUE(start());
  expectPicture(deck.frame, {"RGB"});
  // Where the window reaches beyond the end, the last column of the picture is left out.
  for (const char* shown : {"GBY", "BYW", "YRG", "RGB", "RGB", "GBY"}) {
    advance(50);
    expectPicture(deck.frame, {shown});
  }
}

TEST_P(ImageShow, AtTheLastColumnOneStepLeadsToTheFirst) {
  openWithGrid(12, 2);
  deck.image.setRaster(Raster(100, 2));
  deck.effect().direction = 3;
  deck.imagePosX = 99;
  moveImage(engine, deck);
  EXPECT_EQ(deck.imagePosX, 0);
}

TEST_P(ImageShow, AWindowAt95Of100Shows4ColumnsBeforeTheSeamAnd8Behind) {
  openWithGrid(12, 1);
  Raster image(100, 1);
  for (int x = 0; x < 100; ++x) image.setPixel(x, 0, rgb(x + 1, 0, 0));
  deck.image.setRaster(image);
  deck.effect().direction = 3;
  deck.imagePosX = 94;
  deck.imagePosY = 0;
  moveImage(engine, deck);
  const int shown[12] = {95, 96, 97, 98, 0, 1, 2, 3, 4, 5, 6, 7};
  for (int col = 0; col < 12; ++col) EXPECT_EQ(deck.frame.at(col, 0)[0], shown[col] + 1);
}

TEST_P(ImageShow, ADiagonalPictureSlidesThroughBlack) {
  openWithGrid(3, 3);
  list({picture("small", {"RG", "BY"})});
  deck.effect().direction = 6;
  deck.effect().speed = 100;
  ASSERT_TRUE(start());
  expectPicture(deck.frame, {"Y..", "...", "..."});
  // Here too a window that reaches beyond the picture leaves out its last column and row.
  const std::vector<Drawing> shown = {
      {"R..", "...", "..."}, {"...", ".RG", ".BY"}, {"...", "...", "..R"}, {"...", "...", "..."}};
  for (const Drawing& drawing : shown) {
    advance(50);
    expectPicture(deck.frame, drawing);
  }
}

TEST_P(ImageShow, AnEmptyListSaysSoAndTurnsTheDeckBlack) {
  openWithGrid(2, 2);
  list({});
  deck.frame.fill({9, 9, 9});
  ASSERT_TRUE(start());
  EXPECT_EQ(takeBoxes(), Boxes{"No Pictures in List. Please edit preset"});
  expectPicture(deck.frame, {"..", ".."});
}

TEST_P(ImageShow, APictureWiderThan16BitsOverflowsAndTheShowGoesOn) {
  openWithGrid(2, 1);
  list({picture("huge", Raster(40000, 1))});
  deck.effect().direction = 6;
  EXPECT_FALSE(start());
  EXPECT_EQ(takeFailure(), kOverflow);
  deck.effect().direction = 0;
  list({picture("red", {"RR"})});
  EXPECT_TRUE(start());
  expectPicture(deck.frame, {"RR"});
}

TEST_P(ImageShow, EveryTickIsMixedAndSentWhileNoFadeRuns) {
  openWithGrid(2, 1);
  v.masterValue = deck.isB() ? 1 : 0;
  list({picture("wide", {"RGBYW"})});
  deck.effect().direction = 3;
  deck.effect().speed = 100;
  ASSERT_TRUE(start());
  event([&] { plugin.matrixForm.active.setValue(1); });
  takeCalls();
  advance(50);
  EXPECT_FALSE(takeCalls().empty());
  EXPECT_EQ(rgb(v.frameM.at(0, 0)), rgb(0, 255, 0));
}

TEST_P(ImageShow, DuringAFadeOfShortStepsTheTickLeavesTheMixAlone) {
  openWithGrid(2, 1);
  v.masterValue = deck.isB() ? 1 : 0;
  list({picture("wide", {"RGBYW"})});
  deck.effect().direction = 3;
  ASSERT_TRUE(start());
  v.fadeRunning = true;
  for (const auto& [interval, mixes] : {std::pair{400, false}, {401, true}}) {
    master.timerM.setInterval(interval);
    v.frameM.fill({7, 7, 7});
    moveImage(engine, deck);
    EXPECT_EQ(v.frameM.at(0, 0) != (Rgb{7, 7, 7}), mixes) << interval;
  }
}

TEST_P(ImageShow, AMiniPictureSmallerThanTheMatrixLeavesTheRestBlack) {
  openWithGrid(3, 2);
  deck.mini.setRaster(rasterOf({"RG"}));
  deck.frame.fill({9, 9, 9});
  sampleMini(engine, deck);
  expectPicture(deck.frame, {"RG.", "..."});
}

TEST_P(ImageShow, ARelativePathMeansAPictureOfTheShowOrElseOneOfTheSystem) {
  std::filesystem::create_directory(folder + "/slides");
  writeFile(folder + "/slides/a.bmp", "BM");
  EXPECT_EQ(std::filesystem::path(pictureFile("slides/a.bmp", folder)),
            std::filesystem::path(folder + "/slides/a.bmp"));
  EXPECT_EQ(pictureFile("slides/b.bmp", folder), "slides/b.bmp");
  EXPECT_EQ(pictureFile("slides/a.bmp", ""), "slides/a.bmp");  // no show was loaded
  EXPECT_EQ(pictureFile("", folder), "");
  const std::string whole = std::filesystem::absolute("none.bmp").string();
  EXPECT_EQ(pictureFile(whole, folder), whole);
}

}  // namespace
}  // namespace korvane
