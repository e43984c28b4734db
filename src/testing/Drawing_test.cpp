#include "testing/Drawing.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace korvane {
namespace {

const Raster& halfRed() {
  static const Raster raster = [] {
    Raster half(3, 2);
    half.fillRect(0, 0, 1, 1, rgb(255, 0, 0));
    return half;
  }();
  return raster;
}

TEST(Drawing, AcceptsThePictureThatItShows) {
  expectPicture(halfRed(), {"RR.",  //
                            "RR."});
  expectPicture(frameOf({"RGB", "YCM"}), {"RGB", "YCM"});
  expectPicture(std::vector<Rgb>{{255, 255, 255}, {0, 0, 0}}, {"W."});
  Grid<Color> painted;
  painted.redim(1, 2);
  painted.at(0, 1) = rgb(180, 180, 180);
  expectPicture(painted, {".", "g"});
}

TEST(Drawing, FramesKeepColumnsAndRowsApart) {
  const Frame frame = frameOf({"RG", "B."});
  EXPECT_EQ(frame.at(1, 0), (Rgb{0, 255, 0}));
  EXPECT_EQ(frame.at(0, 1), (Rgb{0, 0, 255}));
}

TEST(Drawing, AFailureNamesTheFirstWrongCell) {
  EXPECT_NONFATAL_FAILURE(expectPicture(halfRed(), {"RR.", "R.."}),
                          "first wrong cell: column 1, row 1 is FF0000, should be 000000");
}

TEST(Drawing, AFailureShowsBothPicturesSideBySide) {
  EXPECT_NONFATAL_FAILURE(expectPicture(halfRed(), {"RR.", "R.."}), "  RR.   R..\n");
}

TEST(Drawing, ColoursWithoutALetterAreShownAsQuestionMarks) {
  EXPECT_NONFATAL_FAILURE(expectPicture(Raster(2, 1, rgb(1, 2, 3)), {".."}), "  ??   ..\n");
}

TEST(Drawing, AnotherSizeIsAFailure) {
  EXPECT_NONFATAL_FAILURE(expectPicture(halfRed(), {"RR", "RR"}), "is 3 x 2, should be 2 x 2");
}

TEST(Drawing, ATestCanBringItsOwnLetters) {
  const Raster raster(2, 1, rgb(1, 2, 3));
  expectPicture(raster, {"aR"}, {{'a', rgb(1, 2, 3)}, {'R', rgb(1, 2, 3)}});
}

TEST(Drawing, PicturesCanBeCut) { expectPicture(Picture(halfRed()).cut(1, 0, 2, 1), {"R."}); }

TEST(Drawing, BrokenDrawingsAreRefused) {
  EXPECT_THROW(expectPicture(halfRed(), {"RR.", "R"}), std::invalid_argument);
  EXPECT_THROW(frameOf({"x"}), std::invalid_argument);
}

}  // namespace
}  // namespace korvane
