#include "desk/project/KeptShows.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace korvane {
namespace {

class KeptShowsTest : public testing::Test {
 protected:
  KeptShowsTest() { std::filesystem::remove_all(folder); }
  ~KeptShowsTest() override { std::filesystem::remove_all(folder); }

  static KeptShow tour() {
    return {"/shows/tour.Korvane",    "tour",     {"speed of 'Glück'"},
            "tour\r\nGl\xfc\x81\r\n", "grid\r\n", "{}"};
  }
  std::string folder = testing::TempDir() + "korvane-kept-" +
                       testing::UnitTest::GetInstance()->current_test_info()->name() + "/";
};

TEST_F(KeptShowsTest, WhatADeskLeftBehindIsFoundAsItWas) {
  {
    KeptShows desk(folder);
    EXPECT_EQ(desk.hold("/shows/tour.Korvane"), "");
    desk.keep(tour());
    EXPECT_FALSE(KeptShows(folder).left()) << "its desk is alive";
  }
  const auto left = KeptShows(folder).left();
  ASSERT_TRUE(left);
  EXPECT_EQ(left->show, tour());
  EXPECT_EQ(left->time.size(), 16U) << left->time;
}

TEST_F(KeptShowsTest, WhatWasDroppedIsNotOffered) {
  {
    KeptShows desk(folder);
    desk.hold("");
    desk.keep(tour());
    desk.drop();
  }
  EXPECT_FALSE(KeptShows(folder).left());
}

TEST_F(KeptShowsTest, TheSecondDeskOnAProjectIsToldAndKeepsItsOwn) {
  KeptShows one(folder), two(folder);
  EXPECT_EQ(one.hold("/shows/tour.Korvane"), "");
  EXPECT_NE(two.hold("/shows/tour.Korvane").find("(process "), std::string::npos);
  EXPECT_NE(one.key(), two.key());
  KeptShows other(folder), another(folder);
  EXPECT_EQ(other.hold(""), "");
  EXPECT_EQ(another.hold(""), "") << "new shows are each their own";
  EXPECT_NE(other.key(), another.key());
}

TEST_F(KeptShowsTest, WhatWasLeftBehindOfAProjectIsOfferedWhenItIsOpenAgain) {
  {
    KeptShows desk(folder);
    desk.hold(tour().path);
    desk.keep(tour());
  }
  KeptShows next(folder);
  EXPECT_EQ(next.hold(tour().path), "");
  next.drop();  // nothing is changed in it yet
  const auto left = next.left();
  ASSERT_TRUE(left);
  EXPECT_EQ(left->show, tour());
  KeptShow changed = tour();
  changed.changes = {"size of the grid"};
  next.keep(changed);
  EXPECT_EQ(next.left()->show, tour()) << "its own is no other's";
  EXPECT_FALSE(KeptShows(folder).left()) << "nobody else is asked meanwhile";
  EXPECT_NE(KeptShows(folder).hold(tour().path), "") << "a second desk is told";
  next.drop(left->key);
  EXPECT_FALSE(next.left());
}

TEST_F(KeptShowsTest, AnotherFileInTheFolderIsPassedOver) {
  std::filesystem::create_directories(folder);
  std::ofstream(folder + "x.kept") << "{\"path\": 3}";
  std::ofstream(folder + "y.kept") << "no JSON";
  EXPECT_FALSE(KeptShows(folder).left());
}

}  // namespace
}  // namespace korvane
