#include "platform/Damage.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

TEST(Damage, OnlyTheFirstOfManyChangesAsksForPainting) {
  Damage damage;
  EXPECT_TRUE(damage.add(3, 4, 5, 6));
  EXPECT_FALSE(damage.add(1, 8, 2, 9));
  EXPECT_FALSE(damage.add(4, 5, 4, 5));
  EXPECT_EQ(damage.take(20, 20), (Damage::Area{1, 4, 5, 9}));
  EXPECT_TRUE(damage.add(0, 0, 0, 0));
  EXPECT_EQ(damage.take(20, 20), (Damage::Area{0, 0, 0, 0}));
}

TEST(Damage, WhatLiesOutsideThePictureIsCutOff) {
  Damage damage;
  damage.add(-5, -1, 30, 2);
  EXPECT_EQ(damage.take(20, 2), (Damage::Area{0, 0, 19, 1}));
  damage.add(20, 5, 30, 9);
  EXPECT_TRUE(damage.take(20, 20).empty());
}

TEST(Damage, NothingHasChangedSinceItWasTaken) {
  Damage damage;
  damage.add(1, 1, 2, 2);
  damage.take(20, 20);
  EXPECT_TRUE(damage.take(20, 20).empty());
}

}  // namespace
}  // namespace korvane
