#include "desk/output/Sender.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desk/network/ArtnetPacket.h"
#include "desk/network/SacnPacket.h"
#include "desk/output/TestNetwork.h"

namespace korvane {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr TimePoint kStart = TimePoint{} + 1000h;
TimePoint virtualNow = kStart;

const Endpoint kOther{0x0a000007, 5568};  // 10.0.0.7
constexpr Uuid kOurs = {1, 2, 3};
constexpr Uuid kTheirs = {9, 9, 9};

/// An output under a virtual clock, on a network that the test holds. A look is a picture whose
/// first channel, or first lamp, tells it from others.
class Senders : public testing::Test {
 protected:
  void begin(const std::string& text, int value = 1) {
    config = parseOutput(text);
    virtualNow = kStart;
    sender.emplace(config, makeCarrier(config, {kOurs, &sequences}, network), look(value));
  }
  OutputPicture look(int value) const {
    WallPicture wall;
    wall.lamps.resize(lamps);
    for (Slots& slots : wall.universes) slots[0] = static_cast<std::uint8_t>(value);
    for (Rgb& lamp : wall.lamps) lamp = {static_cast<std::uint8_t>(value), 0, 0};
    return pictureFor(config, wall);
  }
  void show(int value) { sender->show(look(value), virtualNow); }
  /// Lets time pass; steps run when they are due.
  void runUntil(milliseconds end) {
    while (!sender->ended() && sender->due() <= kStart + end) {
      virtualNow = std::max(virtualNow, sender->due());
      const std::size_t before = network.calls.size();
      sender->step(virtualNow, [] { return virtualNow; });
      for (std::size_t call = before; call < network.calls.size(); ++call)
        times.push_back(virtualNow);
    }
    virtualNow = std::max(virtualNow, kStart + end);
  }
  /// "5@100": the first value was 5 at 100 ms; "!" marks a terminated packet; pictures alone.
  std::string log() const {
    std::string text;
    for (std::size_t i = 0; i < network.calls.size(); ++i) {
      const std::vector<std::uint8_t>& bytes = network.calls[i].datagrams.front().bytes;
      const bool sacn = config.kind == OutputKind::Sacn;
      if (bytes.size() < 500) continue;
      const int value = bytes[sacn ? 126 : config.kind == OutputKind::Artnet ? 18 : 10];
      const auto at = std::chrono::duration_cast<milliseconds>(times[i] - kStart).count();
      text += (text.empty() ? "" : " ") + std::to_string(value) + "@" + std::to_string(at) +
              (sacn && bytes[112] == 0x40 ? "!" : "");
    }
    return text;
  }
  OutputFigures figures() const { return sender->figures(virtualNow); }
  std::vector<std::uint8_t> foreign(const std::string& name, int universe, int priority,
                                    bool terminated = false) const {
    return sacnPacket({kTheirs, universe, 1, terminated, name, priority}, Slots{});
  }

  TestNetwork network;
  SequenceStore sequences;
  std::size_t lamps = 200;
  OutputConfig config;
  std::optional<Sender> sender;
  std::vector<TimePoint> times;
};

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

/// A display of DDP as its field list says: it shows what is pushed. Made apart from the writer.
struct DdpDisplay {
  std::vector<std::uint8_t> memory, shown;
  int pushes = 0;

  void take(const std::vector<std::uint8_t>& packet) {
    ASSERT_GE(packet.size(), 10U);
    EXPECT_EQ(packet[0] & 0xc0, 0x40) << "version 1";
    EXPECT_EQ(packet[0] & 0x3e, 0) << "no query, reply, storage or time code";
    EXPECT_EQ(packet[1] & 0xf0, 0);
    EXPECT_EQ(packet[2], 0x0b) << "RGB, 8 bits";
    EXPECT_EQ(packet[3], 1) << "the display";
    const std::size_t offset =
        static_cast<std::size_t>(packet[4]) << 24 | packet[5] << 16 | packet[6] << 8 | packet[7];
    const std::size_t length = static_cast<std::size_t>(packet[8]) << 8 | packet[9];
    ASSERT_EQ(packet.size(), 10 + length);
    ASSERT_LE(length, 1440U);
    memory.resize(std::max(memory.size(), offset + length));
    std::copy(packet.begin() + 10, packet.end(),
              memory.begin() + static_cast<std::ptrdiff_t>(offset));
    if ((packet[0] & 1) == 0) return;
    shown = memory;
    ++pushes;
  }
};

TEST_F(Senders, DdpShowsTheWholeWallAlsoWhenItFillsItsPackets) {
  for (const std::size_t count : {1U, 479U, 480U, 481U, 960U, 2500U, 4800U}) {
    SCOPED_TRACE(count);
    lamps = count;
    network.calls.clear();
    begin("ddp@10.0.0.1", 77);
    runUntil(0ms);
    DdpDisplay display;
    for (const Datagram& datagram : network.calls[0].datagrams) display.take(datagram.bytes);
    EXPECT_EQ(display.pushes, 1);
    ASSERT_EQ(display.shown.size(), 3 * count);
    for (std::size_t i = 0; i < display.shown.size(); ++i)
      ASSERT_EQ(display.shown[i], i % 3 == 0 ? 77 : 0) << i;
  }
}

TEST_F(Senders, DdpNumbersItsPacketsUnlessAPictureHasMoreThanTen) {
  lamps = 961;
  begin("ddp@10.0.0.1,rate=1000");
  for (int i = 0; i < 20; ++i) {
    runUntil(i * 10ms);
    show(i + 2);
  }
  int last = 0;
  for (const auto& call : network.calls) {
    for (const Datagram& datagram : call.datagrams) {
      EXPECT_EQ(datagram.bytes[1], last % 15 + 1);
      last = datagram.bytes[1];
    }
  }
  lamps = 5000;
  begin("ddp@10.0.0.1");
  runUntil(0ms);
  EXPECT_EQ(network.calls.back().datagrams.size(), 11U);
  for (const Datagram& datagram : network.calls.back().datagrams) EXPECT_EQ(datagram.bytes[1], 0);
}

TEST_F(Senders, AWallWithoutLampsSendsNothingByDdp) {
  lamps = 0;
  begin("ddp@10.0.0.1");
  runUntil(5s);
  EXPECT_THAT(network.calls, IsEmpty());
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
