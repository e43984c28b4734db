#include "hosts/desk/DeskHost.h"

#include <gtest/gtest.h>

#include <QTest>
#include <filesystem>

#include "hosts/desk/Receiver.h"
#include "platform/Failure.h"

namespace korvane {
namespace {

class DeskHosts : public testing::Test {
 protected:
  NetworkOutput output{"korvane-tests"};
  DeskHost host{"/some/folder/summer tour", output};
};

TEST_F(DeskHosts, TheProjectIsNamedAfterTheLastPartOfItsPath) {
  EXPECT_EQ(host.ProjectName(), "summer tour");
  EXPECT_EQ(host.ProjectBaseFilename(), "/some/folder/summer tour");
  DeskHost relative("show", output);
  EXPECT_EQ(relative.ProjectName(), "show");
  EXPECT_EQ(relative.ProjectBaseFilename(), (std::filesystem::current_path() / "show").string());
}

TEST_F(DeskHosts, KeepsTheLevelsAndTellsOfEach) {
  std::vector<std::int32_t> told;
  host.onLevel = [&told](std::int32_t channel) { told.push_back(channel); };
  host.SetChannel(1, 255, true);
  host.SetChannel(512, 7, true);
  host.SetChannel(0, 9, true);
  EXPECT_EQ(host.level(1), 255);
  EXPECT_EQ(host.level(512), 7);
  EXPECT_EQ(told, (std::vector<std::int32_t>{1, 512})) << "channel 0 is no lamp";
}

TEST_F(DeskHosts, ChannelsThatItLacksDoNotEndThePass) {
  host.onLevel = [](std::int32_t channel) { ADD_FAILURE() << channel; };
  for (const std::int32_t channel : {-32768, -1, 0, 513}) host.SetChannel(channel, 1, true);
}

TEST_F(DeskHosts, APassGoesOutWholeWhenItsEventIsDone) {
  Receiver receiver;
  output.start(parseOutputTarget(receiver.target()));
  ASSERT_TRUE(QTest::qWaitFor([&] { return !receiver.take().empty(); }, 2000));
  host.UserInteraction();
  host.SetChannel(1, 10, true);
  host.SetChannel(2, 20, true);
  host.SetChannel(3, 30, true);
  std::vector<std::array<int, 3>> frames;
  ASSERT_TRUE(QTest::qWaitFor(
      [&] {
        for (const auto& frame : receiver.take()) frames.push_back(frame);
        return !frames.empty() && frames.back()[0] == 10;
      },
      2000));
  for (const auto& frame : frames) {
    const bool before = frame == std::array<int, 3>{0, 0, 0};
    const bool after = frame == std::array<int, 3>{10, 20, 30};
    EXPECT_TRUE(before || after) << "half a pass: " << frame[0] << " " << frame[1] << " "
                                 << frame[2];
  }
}

}  // namespace
}  // namespace korvane
