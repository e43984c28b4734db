#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "desk/network/Claim.h"
#include "desk/output/Outputs.h"
#include "testing/UdpReceiver.h"

namespace korvane {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;

using Receiver = UdpReceiver;

WallPicture look(int value) {
  WallPicture wall;
  for (Slots& slots : wall.universes) slots.fill(static_cast<std::uint8_t>(value));
  return wall;
}

std::size_t count(const char* folder) {
  std::size_t entries = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder)) ++entries;
  return entries;
}
std::size_t threads() { return count("/proc/self/task"); }
std::size_t descriptors() { return count("/proc/self/fd"); }

TEST(Outputs, OffMeansNoThreadAndNoSocket) {
  const Receiver receiver;
  Outputs outputs("korvane-test-off");
  const std::size_t threadsOfNone = threads();
  Output& output = outputs.add(parseOutput("sacn:1-3" + receiver.place()));
  EXPECT_EQ(threads(), threadsOfNone);
  output.switchOn();  // a sanitizer has a thread of its own from the first one on
  receiver.packet();
  output.switchOff();
  const std::size_t threadsBefore = threads(), descriptorsBefore = descriptors();
  outputs.add(parseOutput("artnet:1" + receiver.place()));
  EXPECT_EQ(threads(), threadsBefore);
  EXPECT_EQ(descriptors(), descriptorsBefore);
  output.switchOn();
  EXPECT_EQ(threads(), threadsBefore + 1);
  EXPECT_EQ(receiver.packet().size(), 638U);
  EXPECT_GT(descriptors(), descriptorsBefore);
  output.switchOff();
  EXPECT_EQ(threads(), threadsBefore);
  EXPECT_EQ(descriptors(), descriptorsBefore);
  EXPECT_EQ(output.status(), "off");
}

TEST(Outputs, AnOutputThatIsSwitchedOnShowsTheNewestPictureAtOnce) {
  const Receiver receiver;
  Outputs outputs("korvane-test-newest");
  outputs.show(look(3));
  Output& output = outputs.add(parseOutput("artnet:1" + receiver.place()));
  outputs.show(look(7));
  output.switchOn();
  EXPECT_EQ(receiver.packet().at(18), 7);
}

TEST(Outputs, SeveralAtOnceEachWithItsOwnUniverses) {
  const Receiver first, second;
  Outputs outputs("korvane-test-several");
  outputs.add(parseOutput("sacn:2=20" + first.place()));
  outputs.add(parseOutput("artnet:5=7" + second.place()));
  WallPicture wall;
  wall.universe(2)[0] = 22;
  wall.universe(5)[0] = 55;
  outputs.show(wall);
  outputs.switchAllOn();
  const auto sacn = first.packet();
  EXPECT_EQ(sacn.at(114), 20);
  EXPECT_EQ(sacn.at(126), 22);
  const auto artnet = second.packet();
  EXPECT_EQ(artnet.at(14), 7);
  EXPECT_EQ(artnet.at(18), 55);
}

TEST(Outputs, SettingsChangeWhileItRuns) {
  const Receiver first, second;
  Outputs outputs("korvane-test-change");
  Output& output = outputs.add(parseOutput("sacn:1" + first.place()));
  outputs.show(look(9));
  output.switchOn();
  EXPECT_EQ(first.packet().at(126), 9);
  output.configure(parseOutput("sacn:1" + second.place()));
  EXPECT_TRUE(output.on());
  EXPECT_EQ(second.packet().at(126), 9);
  std::vector<std::uint8_t> last;
  for (auto packet = first.packet(false); !packet.empty(); packet = first.packet(false))
    last = packet;
  EXPECT_EQ(last.at(112), 0x40) << "the old place was told of the end";
}

TEST(Outputs, LampsSeeNoGapWhenSettingsOfTheSamePlaceChange) {
  const Receiver receiver;
  Outputs outputs("korvane-test-no-gap");
  Output& output = outputs.add(parseOutput("sacn:1" + receiver.place()));
  outputs.show(look(9));
  output.switchOn();
  receiver.packet();
  output.configure(parseOutput("sacn:1" + receiver.place() + ",rate=100,priority=120"));
  auto packet = receiver.packet();
  while (packet.at(108) != 120) packet = receiver.packet();  // the repeats of the old settings
  EXPECT_EQ(packet.at(126), 9);
  EXPECT_EQ(packet.at(112), 0) << "the stream was not terminated";
  output.configure(parseOutput("sacn:1" + receiver.place() + ",rate=100,priority=120,gamma=2"));
  EXPECT_EQ(output.newest().universes[0][0], 9) << "no lamp stands there, so no curve";
  for (packet = receiver.packet(false); !packet.empty(); packet = receiver.packet(false))
    EXPECT_EQ(packet.at(112), 0);
}

TEST(Outputs, AnEndCanBeAnotherThanTheOneThatIsSet) {
  const Receiver receiver;
  Outputs outputs("korvane-test-other-end");
  outputs.add(parseOutput("artnet:1" + receiver.place()));
  outputs.show(look(9));
  outputs.switchAllOn();
  receiver.packet();
  outputs.switchAllOff(AtEnd::Hold);
  for (auto packet = receiver.packet(false); !packet.empty(); packet = receiver.packet(false))
    EXPECT_EQ(packet.at(18), 9);
}

TEST(Outputs, TwoCopiesOfAProgramHaveIdentitiesOfTheirOwnAndAreTold) {
  const Receiver receiver;
  Outputs first("korvane-test-copies");
  Output& sends = first.add(parseOutput("sacn:61234" + receiver.place()));
  sends.switchOn();
  Outputs second("korvane-test-copies");
  EXPECT_NE(first.component(), second.component());
  Output& rival = second.add(parseOutput("sacn:61234" + receiver.place()));
  rival.switchOn();
  EXPECT_THAT(rival.figures().concern, HasSubstr("(process " + std::to_string(getpid()) +
                                                 ") sends there already: the lamps may flicker"));
  EXPECT_EQ(sends.figures().concern, "");
  sends.switchOff();
  for (int packet = 0; packet < 20 && !rival.figures().concern.empty(); ++packet) receiver.packet();
  EXPECT_EQ(rival.figures().concern, "") << "it is alone now";
}

TEST(Outputs, WhoHoldsAPlaceIsKnownHoweverOftenItIsAsked) {
  const std::string self = "(process " + std::to_string(getpid()) + ")";
  const Claim held("korvane-test-asked" + self);
  for (int ask = 0; ask < 9; ++ask)
    EXPECT_THAT(Claim("korvane-test-asked" + self).holder(), HasSubstr(self)) << ask;
}

TEST(Outputs, TheIdentityIsTheSameAfterARestartAndItsNumbersGoOn) {
  const Receiver receiver;
  Uuid before{};
  int last = 0;
  {
    Outputs outputs("korvane-test-restart");
    before = outputs.component();
    outputs.add(parseOutput("sacn:1" + receiver.place() + ",end=release")).switchOn();
    receiver.packet();
  }
  for (auto packet = receiver.packet(false); !packet.empty(); packet = receiver.packet(false))
    last = packet.at(111);
  Outputs outputs("korvane-test-restart");
  EXPECT_EQ(outputs.component(), before);
  outputs.add(parseOutput("sacn:1" + receiver.place())).switchOn();
  EXPECT_EQ(receiver.packet().at(111), (last + 1) % 256);
}

TEST(Outputs, SwitchedAThousandTimesWhilePlaying) {
  const Receiver receiver;
  Outputs outputs("korvane-test-thousand");
  for (const char* text : {"sacn:1-2", "artnet:1-2", "artnet:8"})
    outputs.add(parseOutput(text + receiver.place() + ",end=release,rate=1000"));
  outputs.switchAllOn();
  for (int i = 0; i < 1000; ++i) {
    outputs.show(look(i % 256));
    Output& output = outputs.at(static_cast<std::size_t>(i) % outputs.size());
    output.on() ? output.switchOff() : output.switchOn();
    outputs.status();
  }
  outputs.switchAllOn();
  outputs.show(look(99));
  while (true) {
    const auto packet = receiver.packet();
    ASSERT_FALSE(packet.empty()) << "the last picture came";
    if (packet.back() == 99) break;
  }
}

TEST(Outputs, OtherSettingsJustAfterItIsSwitchedOnHoldForTheNextStreamAlone) {
  const Receiver first, second;
  Outputs outputs("korvane-test-just-after");
  const OutputConfig few = parseOutput("sacn:1" + first.place());
  const OutputConfig many = parseOutput("sacn:1-16" + second.place());
  Output& output = outputs.add(few);
  for (int round = 0; round < 5; ++round) {
    output.switchOn();
    output.configure(many);
    output.switchOff();
    output.configure(few);
    for (auto packet = first.packet(false); !packet.empty(); packet = first.packet(false))
      EXPECT_EQ(packet.at(114), 1) << "the stream that ended kept its universe";
  }
}

TEST(Outputs, AllEndTogetherInATenthOfASecondOrSo) {
  const Receiver receiver;
  Outputs outputs("korvane-test-together");
  for (int universe = 1; universe <= 12; ++universe)
    outputs.add(parseOutput("sacn:" + std::to_string(universe) + receiver.place()));
  outputs.switchAllOn();
  receiver.packet();
  outputs.switchAllOff();
  int farewells = 0;
  for (auto packet = receiver.packet(false); !packet.empty(); packet = receiver.packet(false))
    farewells += packet.size() == 638 && packet.at(112) == 0x40;
  EXPECT_EQ(farewells, 36);
}

}  // namespace
}  // namespace korvane
