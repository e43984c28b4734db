#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desk/network/ArtnetPacket.h"
#include "desk/network/SacnPacket.h"
#include "desk/output/TestSenders.h"

namespace korvane {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(Senders, APictureComesAtOnceThenThreeRepeatsThenKeepAlives) {
  for (const char* text : {"sacn:1@10.0.0.1", "artnet:1", "ddp@10.0.0.1"}) {
    SCOPED_TRACE(text);
    network.calls.clear();
    times.clear();
    begin(text);
    runUntil(1000ms);
    show(2);
    runUntil(2200ms);
    EXPECT_EQ(log(), "1@0 1@100 1@200 1@300 2@1000 2@1100 2@1200 2@1300 2@2100");
  }
}

TEST_F(Senders, OnlyTheNewestPictureIsSentAndTheOneThatIsShownIsNoNews) {
  begin("artnet:1");
  runUntil(5ms);
  for (int value = 2; value <= 9; ++value) show(value);
  runUntil(50ms);
  show(9);
  runUntil(130ms);
  EXPECT_EQ(log(), "1@0 9@22 9@122");
}

TEST_F(Senders, TheRateIsKeptInAnySecond) {
  for (const int rate : {44, 20, 1}) {
    SCOPED_TRACE(rate);
    network.calls.clear();
    times.clear();
    begin("artnet:1,rate=" + std::to_string(rate));
    for (int ms = 0; ms < 5000; ++ms) {
      runUntil(ms * 1ms);
      show(ms % 256);
    }
    ASSERT_GE(times.size(), 5U * static_cast<unsigned>(rate)) << "used to the full";
    const auto most = static_cast<std::size_t>(rate);
    for (std::size_t i = most; i < times.size(); ++i)
      EXPECT_GE(times[i] - times[i - most], 1s) << i;
  }
}

TEST_F(Senders, AllUniversesOfAPictureGoInOneCall) {
  begin("sacn:1-15@10.0.0.1");
  runUntil(0ms);
  ASSERT_EQ(network.calls.size(), 1U);
  EXPECT_EQ(network.calls[0].datagrams.size(), 15U);
}

TEST_F(Senders, TheEndIsBlackTheLastPictureOrNothingAsItIsSet) {
  const struct {
    const char* text;
    const char* log;
  } cases[] = {
      {"sacn:1@10.0.0.1", "1@0 0@22 0@45! 0@68! 0@90!"},
      {"sacn:1@10.0.0.1,end=hold", "1@0 1@22 1@45! 1@68! 1@90!"},
      {"sacn:1@10.0.0.1,end=release", "1@0 1@22! 1@45! 1@68!"},
      {"artnet:1", "1@0 0@22 0@45 0@68"},
      {"artnet:1,end=hold", "1@0 1@22 1@45 1@68"},
      {"artnet:1,end=release", "1@0"},
      {"ddp@10.0.0.1", "1@0 0@22 0@45 0@68"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    network.calls.clear();
    times.clear();
    begin(c.text);
    runUntil(5ms);
    sender->end(parseOutput(c.text).atEnd);
    runUntil(10s);
    EXPECT_EQ(log(), c.log);
    EXPECT_TRUE(sender->ended());
  }
}

TEST_F(Senders, APictureThatWaitsIsTheOneThatIsHeld) {
  begin("artnet:1,end=hold");
  runUntil(5ms);
  show(7);
  sender->end(AtEnd::Hold);
  runUntil(10s);
  EXPECT_EQ(log(), "1@0 7@22 7@45 7@68");
}

TEST_F(Senders, SacnSequenceNumbersGoOnWhereThisIdentityLeftOff) {
  begin("sacn:5@10.0.0.1");
  runUntil(0ms);
  const int last = network.calls.back().datagrams[0].bytes[111];
  begin("sacn:5@10.0.0.1");  // as after a crash: no farewell
  runUntil(0ms);
  EXPECT_EQ(network.calls.back().datagrams[0].bytes[111], last + 1);
}

// Off and on again within seconds: nodes that look at the numbers would leave the lamps as they
// are.
TEST_F(Senders, ArtnetSequenceNumbersGoOnWhenAnOutputIsSwitchedOnAgain) {
  begin("artnet:5@10.0.0.1");
  runUntil(10s);
  const int last = network.calls.back().datagrams[0].bytes[12];
  ASSERT_GT(last, 10);
  begin("artnet:5@10.0.0.1");
  runUntil(0ms);
  EXPECT_EQ(network.calls.back().datagrams[0].bytes[12], last + 1);
}

TEST_F(Senders, SynchronisedPicturesNameTheUniverseWhosePacketReleasesThem) {
  begin("sacn:1-2,sync=7");
  runUntil(0ms);
  const auto& picture = network.calls[0].datagrams;
  ASSERT_EQ(picture.size(), 3U);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(picture[static_cast<std::size_t>(i)].bytes[109], 0);
    EXPECT_EQ(picture[static_cast<std::size_t>(i)].bytes[110], 7);
  }
  EXPECT_EQ(picture[2].bytes, sacnSynchronisation(kOurs, 7, picture[2].bytes[44]));
  EXPECT_EQ(addressText(picture[2].to.address), "239.255.0.7");
  sender->end(AtEnd::Black);
  runUntil(1s);
  const auto& farewell = network.calls.back().datagrams;
  ASSERT_EQ(farewell.size(), 2U);
  EXPECT_EQ(farewell[0].bytes[110], 0) << "nobody waits for a release at the end";
}

TEST_F(Senders, UniversesAreToldEveryTenSeconds) {
  begin("sacn:300+2");
  runUntil(25s);
  const std::vector<int> universes = {2, 300};
  const auto discovery = sacnDiscovery(kOurs, "Korvane", universes);
  std::vector<milliseconds> at;
  for (std::size_t i = 0; i < network.calls.size(); ++i) {
    const Datagram& first = network.calls[i].datagrams.front();
    if (first.bytes.size() > 200) continue;
    EXPECT_EQ(first.bytes, discovery);
    EXPECT_EQ(addressText(first.to.address), "239.255.250.214");
    at.push_back(std::chrono::duration_cast<milliseconds>(times[i] - kStart));
  }
  EXPECT_THAT(at, ElementsAre(0ms, 10s, 20s));
}

TEST_F(Senders, AForeignSourceIsNamedWhileItIsNotWeaker) {
  const struct {
    int priority;
    const char* concern;
  } cases[] = {
      {99, ""},
      {100,
       "'House desk' at 10.0.0.7 sends universe 1 too, with the same priority 100: the lamps may "
       "flicker"},
      {101,
       "'House desk' at 10.0.0.7 sends universe 1 too, with the higher priority 101: its values "
       "win"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.priority);
    begin("sacn:1");
    runUntil(0ms);
    network.deliver(5568, kOther, foreign("House desk", 1, c.priority));
    runUntil(1s);
    EXPECT_EQ(figures().concern, c.concern);
    EXPECT_EQ(figures().error, "");
    runUntil(6s);
    EXPECT_EQ(figures().concern, "") << "it was heard last more than 2.5 s ago";
  }
}

TEST_F(Senders, AForeignSourceThatEndsOrSendsElsewhereOrIsOurselvesIsNoConcern) {
  begin("sacn:1");
  runUntil(0ms);
  network.deliver(5568, kOther, foreign("Other", 1, 100));
  network.deliver(5568, kOther, foreign("Other", 1, 100, true));
  network.deliver(5568, kOther, foreign("Other", 2, 200));
  network.deliver(5568, kOther, sacnPacket({kOurs, 1}, Slots{}));
  network.deliver(5568, kOther, {1, 2, 3});
  network.deliver(5568, kOther, std::vector<std::uint8_t>(300, 0xff));
  runUntil(1s);
  EXPECT_EQ(figures().concern, "");
}

/// A node's answer with one output at this port address.
std::vector<std::uint8_t> nodeReply(const std::string& name, int universe) {
  std::vector<std::uint8_t> bytes(239);
  const std::string head("Art-Net\0\0\x21", 10);
  std::copy(head.begin(), head.end(), bytes.begin());
  bytes[18] = static_cast<std::uint8_t>(universe >> 8);
  bytes[19] = static_cast<std::uint8_t>(universe >> 4 & 15);
  std::copy(name.begin(), name.end(), bytes.begin() + 44);
  bytes[173] = 1;
  bytes[174] = 0x80;
  bytes[190] = static_cast<std::uint8_t>(universe & 15);
  return bytes;
}

TEST_F(Senders, ArtnetGoesToTheNodesThatAnsweredThePoll) {
  begin("artnet:18-19@nodes");
  runUntil(0ms);
  ASSERT_EQ(network.calls.size(), 1U);
  EXPECT_EQ(network.calls[0].datagrams[0].bytes, artnetPoll());
  EXPECT_EQ(figures().concern, "no node has answered for universe 18, 19");
  network.deliver(6454, {0x0a000009, 6454}, nodeReply("Left pixels", 19));
  runUntil(2799ms);
  EXPECT_EQ(figures().concern, "no node has answered for universe 18");
  EXPECT_THAT(figures().receivers,
              ElementsAre("Left pixels at 10.0.0.9, universes 19 (net 0, sub-net 1, universe 3)"));
  show(5);
  runUntil(2799ms);
  ASSERT_EQ(network.calls.back().datagrams.size(), 1U);
  EXPECT_EQ(addressText(network.calls.back().datagrams[0].to.address), "10.0.0.9");
  EXPECT_EQ(network.calls.back().datagrams[0].bytes[14], 19);
  runUntil(15s);
  EXPECT_THAT(figures().receivers, IsEmpty()) << "it has not answered for 9 s";
}

TEST_F(Senders, ArtnetPollsEvery2800MillisecondsAndSaysThatThePortIsTaken) {
  network.openErrors[6454] = portTakenText();
  begin("artnet:1@nodes");
  runUntil(8500ms);
  EXPECT_EQ(network.calls.size(), 4U);
  EXPECT_EQ(figures().concern,
            "UDP port 6454 can't be listened on, so others can't be seen: Address already in use");
  network.openErrors.clear();
  runUntil(12s);
  EXPECT_EQ(figures().concern, "no node has answered for universe 1");
}

TEST_F(Senders, ArtSyncFollowsEachPictureByChoice) {
  begin("artnet:1-2,sync=on");
  runUntil(0ms);
  ASSERT_EQ(network.calls[0].datagrams.size(), 3U);
  EXPECT_EQ(network.calls[0].datagrams[2].bytes, artnetSync());
}

TEST_F(Senders, ArtnetSequenceNumbersRunFrom1To255) {
  begin("artnet:1,rate=1000");
  for (int i = 0; i < 600; ++i) {
    runUntil(i * 10ms);
    show(i % 250 + 2);
  }
  for (std::size_t i = 0; i < network.calls.size(); ++i)
    ASSERT_EQ(network.calls[i].datagrams[0].bytes[12], static_cast<int>(i) % 255 + 1) << i;
}

TEST_F(Senders, AnErrorIsToldForSomeSecondsAndSendingGoesOnWithANewSocket) {
  begin("artnet:1");
  network.sendError = "Network is unreachable";
  runUntil(500ms);
  EXPECT_EQ(figures().error, "Network is unreachable");
  const int before = network.opened;
  network.sendError.clear();
  runUntil(1200ms);
  EXPECT_EQ(network.opened, before + 1);
  EXPECT_EQ(network.calls.size(), 1U);
  EXPECT_EQ(figures().error, "Network is unreachable") << "it shall not flicker";
  runUntil(6s);
  EXPECT_EQ(figures().error, "");
}

TEST_F(Senders, AClockThatJumpsAheadMakesNoBurst) {
  begin("artnet:1");
  runUntil(1s);
  const std::size_t before = network.calls.size();
  virtualNow += 24h;  // the machine slept
  sender->step(virtualNow, [] { return virtualNow; });
  sender->step(virtualNow, [] { return virtualNow; });
  EXPECT_EQ(network.calls.size(), before + 1);
  EXPECT_EQ(figures().late, 1);
}

TEST_F(Senders, FiguresTellPacketsASecondAndLateOnes) {
  begin("sacn:1-3@10.0.0.1");
  for (int frame = 0; frame <= 40; ++frame) {
    runUntil(frame * 50ms);
    show(frame + 2);
  }
  EXPECT_NEAR(figures().packetsPerSecond, 60, 3);
  EXPECT_EQ(figures().late, 0);
  virtualNow += 30ms;
  sender->step(virtualNow, [] { return virtualNow; });
  EXPECT_EQ(figures().late, 1);
}

}  // namespace
}  // namespace korvane
