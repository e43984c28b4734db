#include "output/Preview.h"

#include <gtest/gtest.h>

#include "testing/Drawing.h"
#include "testing/EngineTest.h"

namespace korvane {
namespace {

using Calls = std::vector<std::string>;

bool operator==(const PreviewGeometry& one, const PreviewGeometry& other) {
  return one.cell == other.cell && one.box == other.box && one.left == other.left &&
         one.top == other.top;
}

struct Fit {
  const char* name;
  int cols, rows;
  int width, height;
  PreviewGeometry geometry;
};

class PreviewGeometries : public EngineTest, public testing::WithParamInterface<Fit> {
 protected:
  void fit(PictureBox& box) {
    redim(GetParam().cols, GetParam().rows);
    box.resize(GetParam().width, GetParam().height);
    set_matrix_values(engine, box);
  }
};

TEST_P(PreviewGeometries, TheMixHasItsOwn) {
  fit(engine.master.picture);
  EXPECT_TRUE(v.previewM == GetParam().geometry);
  EXPECT_TRUE(v.previewA == PreviewGeometry());
  EXPECT_TRUE(v.previewB == PreviewGeometry());
}

TEST_P(PreviewGeometries, OneResultServesBothDecks) {
  for (PictureBox* box : {&v.A.picture, &v.B.picture}) {
    v.previewA = v.previewB = {};
    fit(*box);
    EXPECT_TRUE(v.previewA == GetParam().geometry);
    EXPECT_TRUE(v.previewB == GetParam().geometry);
    EXPECT_TRUE(v.previewM == PreviewGeometry());
  }
}

INSTANTIATE_TEST_SUITE_P(
    Preview, PreviewGeometries,
    testing::Values(Fit{"SquaresOfSevenPixels", 12, 12, 100, 100, {8, 7, 2, 2}},
                    Fit{"TallTakesTheHeight", 10, 20, 100, 200, {10, 9, 0, 0}},
                    Fit{"TallInASquare", 10, 20, 100, 100, {5, 4, 25, 0}},
                    Fit{"WideTakesTheWidth", 20, 10, 100, 100, {5, 4, 0, 25}},
                    Fit{"SquareTakesTheHeight", 10, 10, 200, 100, {10, 9, 50, 0}},
                    Fit{"SquareTakesTheHeightEvenIfItIsWider", 10, 10, 50, 100, {10, 9, -25, 0}},
                    Fit{"OffsetsAreTruncated", 3, 3, 14, 13, {4, 3, 1, 0}},
                    Fit{"OneCell", 1, 1, 33, 20, {20, 19, 6, 0}},
                    Fit{"TooSmallForAPixelEach", 20, 20, 10, 15, {0, -1, 5, 7}},
                    Fit{"TheLargestGrid", 50, 50, 240, 240, {4, 3, 20, 20}}),
    [](const testing::TestParamInfo<Fit>& fit) { return fit.param.name; });

TEST_F(EngineTest, APreviewOfAnEmptyGridIsADivisionByZero) {
  redim(0, 0);
  EXPECT_EQ(failureOf([&] { set_matrix_values(engine, v.A.picture); }), kDivisionByZero);
  EXPECT_EQ(failureOf([&] { set_matrix_values(engine, engine.master.picture); }), kDivisionByZero);
}

// A grid of 2 x 2 in boxes of 10 x 9: a pitch of 4 from (1, 0).
class Previews : public EngineTest {
 protected:
  void SetUp() override {
    redim(2, 2);
    v.frameA = frameOf({"RG", "BW"});
    v.frameB = frameOf({"YY", "YY"});
    for (PictureBox* box : boxes) {
      box->resize(10, 9);
      set_matrix_values(engine, *box);
    }
  }

  std::array<PictureBox*, 3> boxes = {&v.A.picture, &v.B.picture, &engine.master.picture};
  const Raster blank = Raster(10, 9);
};

TEST_F(Previews, SquaresAreAPixelApart) {
  drawMatrixA(engine);
  expectPicture(v.A.picture.raster(), {".RRR.GGG..",  //
                                       ".RRR.GGG..",  //
                                       ".RRR.GGG..",  //
                                       "..........",  //
                                       ".BBB.WWW..",  //
                                       ".BBB.WWW..",  //
                                       ".BBB.WWW..",  //
                                       "..........",  //
                                       ".........."});
  EXPECT_EQ(v.B.picture.raster(), blank);
}

TEST_F(Previews, EachBoxShowsItsFrame) {
  v.frameM = frameOf({"CC", "CC"});
  drawMatrixA(engine);
  drawMatrixB(engine);
  drawMatrixM(engine);
  EXPECT_EQ(v.A.picture.raster().pixel(1, 0), rgb(255, 0, 0));
  EXPECT_EQ(v.B.picture.raster().pixel(1, 0), rgb(255, 255, 0));
  EXPECT_EQ(engine.master.picture.raster().pixel(1, 0), rgb(0, 255, 255));
}

TEST_F(Previews, APointIsOneSquare) {
  v.frameM = frameOf({"CC", "CC"});
  drawPoint(engine, v.A, 1, 0);
  drawPoint(engine, v.B, 0, 1);
  drawPointM(engine, 1, 1);
  expectPicture(Picture(v.A.picture.raster()).cut(0, 0, 10, 5),
                {".....GGG..", ".....GGG..", ".....GGG..", "..........", ".........."});
  expectPicture(Picture(v.B.picture.raster()).cut(0, 3, 10, 5),
                {"..........", ".YYY......", ".YYY......", ".YYY......", ".........."});
  expectPicture(Picture(engine.master.picture.raster()).cut(0, 3, 10, 5),
                {"..........", ".....CCC..", ".....CCC..", ".....CCC..", ".........."});
}

TEST_F(Previews, WhatNobodySeesIsNotPaintedAndTheMixGoesOn) {
  for (PictureBox* box : boxes) box->leaveBlank();
  publishDeckFrame(engine, v.A);
  publishDeckFrame(engine, v.B);
  drawPoint(engine, v.A, 1, 0);
  for (PictureBox* box : boxes) EXPECT_EQ(box->raster(), blank) << box->name();
  v.masterValue = 0;
  mixAndDraw(engine);
  expectPicture(v.frameM, {"RG", "BW"});
}

TEST_F(Previews, DrawingTellsTheViewWhatChanged) {
  Calls changes;
  for (PictureBox* box : boxes) {
    box->onPixels = [&changes, box](int x1, int y1, int x2, int y2) {
      changes.push_back(box->name() + " " + std::to_string(x1) + " " + std::to_string(y1) + " " +
                        std::to_string(x2) + " " + std::to_string(y2));
    };
  }
  drawMatrixB(engine);
  drawPoint(engine, v.A, 1, 0);
  EXPECT_EQ(changes, (Calls{"PB_B 0 0 9 8", "PB_A 5 0 7 2"}));
}

TEST_F(Previews, WithoutAPixelForEachCellAllSquaresStandOnTheOffset) {
  v.A.picture.resize(1, 1);
  set_matrix_values(engine, v.A.picture);
  EXPECT_EQ(v.previewA.cell, 0);
  v.A.picture.resize(10, 9);
  drawMatrixA(engine);
  EXPECT_EQ(v.A.picture.raster().pixel(v.previewA.left, v.previewA.top), rgb(255, 255, 255));
  EXPECT_EQ(v.A.picture.raster().pixel(5, 5), 0);
}

TEST_F(Previews, FittingDrawsOnlyInAVisibleWindow) {
  Form window("MatrixForm", "Korvane");
  set_matrix_values(engine, v.A.picture);
  EXPECT_EQ(v.A.picture.raster(), blank);
  engine.mainWindow = &window;
  set_matrix_values(engine, v.A.picture);
  EXPECT_EQ(v.A.picture.raster(), blank);
  engine.desktop.show(window);
  set_matrix_values(engine, v.B.picture);
  EXPECT_EQ(v.A.picture.raster(), blank);
  EXPECT_NE(v.B.picture.raster(), blank);
  set_matrix_values(engine, v.A.picture);
  EXPECT_NE(v.A.picture.raster(), blank);
  EXPECT_EQ(engine.master.picture.raster(), blank);
  v.frameM = frameOf({"CC", "CC"});
  set_matrix_values(engine, engine.master.picture);
  EXPECT_NE(engine.master.picture.raster(), blank);
}

// Which pictures a closing sequence draws, and whether it mixes.
class Publishing : public Previews {
 protected:
  void SetUp() override {
    Previews::SetUp();
    v.masterValue = 0;
    v.outputActive = true;
  }
  std::string drawn() const {
    std::string names;
    for (const PictureBox* box : boxes) {
      if (!(box->raster() == blank)) names += box->name() + " ";
    }
    return names;
  }
};

TEST_F(Publishing, ADeckIsDrawnThenMixedAndSentThenTheMixIsDrawn) {
  Calls order;
  v.A.picture.onPixels = [&](int, int, int, int) { order.push_back("A"); };
  engine.master.picture.onPixels = [&](int, int, int, int) {
    order.push_back("M after " + std::to_string(host.calls.size()) + " calls");
  };
  publishDeckFrame(engine, v.A);
  EXPECT_EQ(order, (Calls{"A", "M after 7 calls"}));
  EXPECT_EQ(drawn(), "PB_A PB_M ");
  expectPicture(v.frameM, {"RG", "BW"});
}

TEST_F(Publishing, DuringAFadeOnlyTheDeckIsDrawn) {
  v.fadeRunning = true;
  engine.master.timerM.setInterval(5000);
  publishDeckFrame(engine, v.B);
  EXPECT_EQ(drawn(), "PB_B ");
  EXPECT_EQ(host.take(), Calls{});
}

TEST_F(Publishing, TheMixFollowsTheMasterValue) {
  v.masterValue = 1;
  mixAndDraw(engine);
  expectPicture(v.frameM, {"YY", "YY"});
  v.masterValue = 0;
  mixAndDraw(engine, 1, 1);
  expectPicture(v.frameM, {"YY", "YW"});
  EXPECT_EQ(engine.master.picture.raster().pixel(5, 4), rgb(255, 255, 255));
  EXPECT_EQ(engine.master.picture.raster().pixel(1, 4), rgb(255, 255, 0));
}

TEST_F(Publishing, ASlowFadeLeavesTheDecksRoomToMix) {
  EXPECT_TRUE(mixIsFree(engine));
  EXPECT_TRUE(mixIsFree(engine, kSlowFadeFrame));
  v.fadeRunning = true;
  EXPECT_FALSE(mixIsFree(engine));
  for (const std::int32_t limit : {kSlowFadeFrame, kSlowFadeCell}) {
    engine.master.timerM.setInterval(limit);
    EXPECT_FALSE(mixIsFree(engine, limit));
    engine.master.timerM.setInterval(limit + 1);
    EXPECT_TRUE(mixIsFree(engine, limit));
  }
}

}  // namespace
}  // namespace korvane
