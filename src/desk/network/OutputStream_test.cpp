#include "desk/network/OutputStream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "desk/network/ArtnetPacket.h"
#include "desk/network/SacnPacket.h"

namespace korvane {
namespace {

using namespace std::chrono_literals;
using std::chrono::microseconds;

/// What a receiver takes from a packet.
struct Received {
  microseconds at;
  int sequence;
  bool terminated;
  int value;  ///< Of channel 1.
};

Slots look(int value) {
  Slots slots{};
  slots[0] = static_cast<std::uint8_t>(value);
  return slots;
}

/// A stream under a virtual clock. A look is a frame whose channel 1 tells it from others.
class OutputStreamTest : public testing::TestWithParam<const char*> {
 protected:
  void show(int value) { stream.show(look(value)); }

  /// Lets time pass; packets are made when they are due.
  void runUntil(microseconds end) {
    while (!stream.ended() && stream.due() <= TimePoint{} + end) {
      now = std::max(now, std::chrono::duration_cast<microseconds>(stream.due() - TimePoint{}));
      receive(stream.packet());
      stream.sent(TimePoint{} + now);
    }
    now = end;
  }

  void receive(const std::vector<std::uint8_t>& packet) {
    const bool sacn = target.protocol->word == "sacn";
    received.push_back(
        {now, packet[sacn ? 111 : 12], sacn && packet[112] == 0x40, packet[packet.size() - 512]});
  }

  /// "5@100": channel 1 was 5 at 100 ms; "!" marks a terminated packet.
  std::string log() const {
    std::string text;
    for (const Received& r : received) {
      text += (text.empty() ? "" : " ") + std::to_string(r.value) + "@" +
              std::to_string(r.at.count() / 1000) + (r.terminated ? "!" : "");
    }
    return text;
  }

  const OutputTarget target = parseOutputTarget(GetParam());
  OutputStream stream{target, Uuid{}, look(1)};
  microseconds now{};
  std::vector<Received> received;
};

INSTANTIATE_TEST_SUITE_P(Protocols, OutputStreamTest, testing::Values("sacn:1", "artnet:1"),
                         [](const auto& test) {
                           return std::string(parseOutputTarget(test.param).protocol->word);
                         });

TEST_P(OutputStreamTest, TheFirstFrameIsDueAtOnce) {
  EXPECT_LE(stream.due(), TimePoint{});
  runUntil(0us);
  EXPECT_EQ(log(), "1@0");
}

TEST_P(OutputStreamTest, ThreeRepeatsThenKeepAlives) {
  runUntil(3s);
  EXPECT_EQ(log(), "1@0 1@100 1@200 1@300 1@1100 1@1900 1@2700");
}

TEST_P(OutputStreamTest, ANewFrameGoesOutAtOnceAndIsRepeatedAnew) {
  runUntil(1000ms);
  show(2);
  runUntil(1350ms);
  show(3);
  runUntil(1500ms);
  EXPECT_EQ(log(), "1@0 1@100 1@200 1@300 2@1000 2@1100 2@1200 2@1300 3@1350 3@1450");
}

TEST_P(OutputStreamTest, OnePacketPerFrameAndNoMoreWhileFramesComeSteadily) {
  runUntil(0us);
  for (int frame = 2; frame <= 20; ++frame) {
    runUntil((frame - 1) * 50ms);
    show(frame);
  }
  runUntil(950ms);
  ASSERT_EQ(received.size(), 20U);
  for (std::size_t i = 0; i < received.size(); ++i) {
    EXPECT_EQ(received[i].value, static_cast<int>(i) + 1);
    EXPECT_EQ(received[i].at, i * 50ms);
  }
}

TEST_P(OutputStreamTest, AtMost44PacketsInAnySecond) {
  for (int ms = 0; ms < 5000; ++ms) {
    runUntil(ms * 1ms);
    show(ms % 256);
  }
  ASSERT_GT(received.size(), 200U);
  for (std::size_t i = 44; i < received.size(); ++i) {
    EXPECT_GT(received[i].at - received[i - 44].at, 1s) << i;
  }
  EXPECT_GE(received.size(), 5U * 44U) << "the rate is used to the full";
}

TEST_P(OutputStreamTest, OnlyTheLatestFrameIsSent) {
  runUntil(5ms);
  for (int value = 2; value <= 9; ++value) show(value);
  runUntil(50ms);
  EXPECT_EQ(log(), "1@0 9@22");
}

TEST_P(OutputStreamTest, TheRateCountsFromWhenAPacketHasLeft) {
  stream.packet();
  show(2);
  stream.sent(TimePoint{} + 10ms);
  EXPECT_EQ(stream.due(), TimePoint{} + 10ms + 22728us);
}

TEST_P(OutputStreamTest, AFrameThatComesWhileAPacketLeavesIsTheNext) {
  stream.packet();
  show(2);
  stream.sent(TimePoint{});
  runUntil(50ms);
  EXPECT_EQ(log(), "2@22");
}

TEST_P(OutputStreamTest, AFrameThatStillWaitsIsSentBeforeTheEnd) {
  runUntil(5ms);
  show(2);
  stream.end();
  runUntil(10s);
  const bool sacn = target.protocol->goodbyes == 3;
  EXPECT_EQ(log(), sacn ? "1@0 2@22 2@45! 2@68! 2@90!" : "1@0 2@22");
  EXPECT_TRUE(stream.ended());
}

TEST_P(OutputStreamTest, ACleanEndTakesLessThanATenthOfASecond) {
  runUntil(5s);
  const std::size_t before = received.size();
  stream.end();
  runUntil(5100ms);
  EXPECT_TRUE(stream.ended());
  const bool sacn = target.protocol->goodbyes == 3;
  EXPECT_EQ(received.size() - before, sacn ? 3U : 0U);
  EXPECT_EQ(std::ranges::count(received, true, &Received::terminated), sacn ? 3 : 0);
}

TEST_P(OutputStreamTest, AnEndBeforeTheFirstPacketStillTellsTheWholeStory) {
  stream.end();
  EXPECT_FALSE(stream.ended());
  runUntil(1s);
  const bool sacn = target.protocol->goodbyes == 3;
  EXPECT_EQ(log(), sacn ? "1@0 1@22! 1@45! 1@68!" : "1@0");
}

TEST_P(OutputStreamTest, SequenceNumbersStartAnewAfter255) {
  runUntil(250s);
  ASSERT_GT(received.size(), 300U);
  const int first = target.protocol->firstSequence;
  for (std::size_t i = 0; i < received.size(); ++i) {
    const int turn = 256 - first;
    EXPECT_EQ(received[i].sequence, static_cast<int>(i) % turn + first) << i;
  }
}

TEST(OutputStreamOf, SacnCountsFrom0AndArtnetFrom1As0MeansNoSequenceThere) {
  EXPECT_EQ(findProtocol("sacn")->firstSequence, 0);
  EXPECT_EQ(findProtocol("artnet")->firstSequence, 1);
}

TEST(OutputStreamOf, PacketsCarryComponentUniverseAndAllSlots) {
  Slots slots{};
  slots[511] = 99;
  const Uuid component = {1, 2, 3};
  OutputStream sacn(parseOutputTarget("sacn:300"), component, slots);
  EXPECT_EQ(sacn.packet(), sacnPacket({component, 300, 0, false}, slots));
  OutputStream artnet(parseOutputTarget("artnet:300"), component, slots);
  EXPECT_EQ(artnet.packet(), artnetPacket({component, 300, 1, false}, slots));
}

}  // namespace
}  // namespace korvane
