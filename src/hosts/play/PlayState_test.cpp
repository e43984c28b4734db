#include "hosts/play/PlayState.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

namespace korvane {
namespace {

class PlayStateTest : public testing::Test {
 protected:
  PlayStateTest() {
    std::filesystem::remove_all(folder);
    state.add({"show", [] { return Json("/shows/tour.Korvane"); }, [](const Member&) {}});
    state.add({"row", [this] { return Json(row); },
               [this](const Member& member) { member.take(row, 0, 99); }});
    state.add({"fader", [this] { return Json(fader); },
               [this](const Member& member) { member.take(fader, 0, 1); }, Counts::Never});
  }
  ~PlayStateTest() override { std::filesystem::remove_all(folder); }
  std::string bytes() const {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  std::string folder = testing::TempDir() + "korvane-play-state-" +
                       testing::UnitTest::GetInstance()->current_test_info()->name() + "/";
  std::string file = folder + "made/playing";
  PlayState state{file};
  int row = 0;
  double fader = 0;
};

TEST_F(PlayStateTest, ComesBackWhereItWas) {
  row = 7;
  fader = 0.25;
  state.keep(true);
  row = 0;
  fader = 0;
  EXPECT_THAT(state.resume(), testing::IsEmpty());
  EXPECT_EQ(row, 7);
  EXPECT_EQ(fader, 0.25);
  EXPECT_EQ(PlayState::showOf(file), "/shows/tour.Korvane");
}

TEST_F(PlayStateTest, AMovingFaderIsNotWrittenUntilItRests) {
  state.keep(false);
  const std::string before = bytes();
  fader = 0.5;
  state.keep(false);
  EXPECT_EQ(bytes(), before);
  state.keep(true);
  EXPECT_NE(bytes(), before);
}

TEST_F(PlayStateTest, AnotherRowIsWrittenAtOnce) {
  state.keep(false);
  row = 3;
  fader = 0.125;
  state.keep(false);
  EXPECT_NE(bytes().find("\"row\": 3"), std::string::npos);
}

TEST_F(PlayStateTest, NothingIsThereBeforeTheFirstTime) {
  EXPECT_EQ(PlayState::showOf(file), "");
  row = 5;
  EXPECT_THAT(state.resume(), testing::IsEmpty());
  EXPECT_EQ(row, 5);
}

}  // namespace
}  // namespace korvane
