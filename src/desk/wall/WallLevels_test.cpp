#include "desk/wall/WallLevels.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

WallPicture filled(std::uint8_t value) {
  WallPicture picture;
  picture.universe(1).fill(value);
  return picture;
}

TEST(LevelsOrder, AllOfThePictureGoesOutWhenNothingIsSet) {
  LevelStage stage;
  EXPECT_EQ(stage.pass(filled(7), {}), (LevelledPicture{filled(7), 100}));
}

TEST(LevelsOrder, TheGrandMasterIsHandedOnWithThePicture) {
  LevelStage stage;
  EXPECT_EQ(stage.pass(filled(7), {.master = 40}), (LevelledPicture{filled(7), 40}));
  EXPECT_EQ(stage.pass(filled(7), {.master = 101}).master, 100);
  EXPECT_EQ(stage.pass(filled(7), {.master = -1}).master, 0);
}

TEST(LevelsOrder, BlackoutIsDarkWhateverTheMasterSays) {
  LevelStage stage;
  EXPECT_EQ(stage.pass(filled(7), {.master = 100, .blackout = true}).master, 0);
  EXPECT_EQ(stage.pass(filled(7), {.master = 30, .blackout = false}).master, 30)
      << "the master is where it was";
}

TEST(LevelsOrder, FreezeHoldsThePictureThatWentOutLast) {
  LevelStage stage;
  stage.pass(filled(7), {.master = 60});
  EXPECT_EQ(stage.pass(filled(8), {.master = 60, .freeze = true}),
            (LevelledPicture{filled(7), 60}));
  EXPECT_EQ(stage.pass(filled(9), {.master = 60}), (LevelledPicture{filled(9), 60}));
}

TEST(LevelsOrder, FreezeStandsBehindMasterAndBlackout) {
  LevelStage stage;
  stage.pass(filled(7), {.master = 60});
  EXPECT_EQ(stage.pass(filled(7), {.master = 10, .freeze = true}).master, 60);
  stage.pass(filled(7), {.blackout = true});
  EXPECT_EQ(stage.pass(filled(7), {.blackout = false, .freeze = true}).master, 0)
      << "what was dark stays dark";
}

TEST(LevelsOrder, ABlackoutDarkensAFrozenWallForAsLongAsItLasts) {
  LevelStage stage;
  stage.pass(filled(7), {.master = 60});
  stage.pass(filled(8), {.master = 60, .freeze = true});
  EXPECT_EQ(stage.pass(filled(8), {.blackout = true, .freeze = true}).master, 0);
  EXPECT_EQ(stage.pass(filled(8), {.freeze = true}), (LevelledPicture{filled(7), 60}));
}

TEST(LevelsOrder, AFreezeFromTheStartHoldsTheFirstPicture) {
  LevelStage stage;
  stage.pass(filled(1), {.freeze = true});
  EXPECT_EQ(stage.pass(filled(2), {.freeze = true}).picture, filled(1));
}

}  // namespace
}  // namespace korvane
