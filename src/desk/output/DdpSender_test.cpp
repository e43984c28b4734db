// The whole wall by DDP, read by a display that was made apart from the writer.

#include <gmock/gmock.h>

#include "desk/output/TestSenders.h"

namespace korvane {
namespace {

using namespace std::chrono_literals;
using testing::IsEmpty;

using DdpSenders = Senders;

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
        (packet[4] * 256U + packet[5]) * 65536U + packet[6] * 256U + packet[7];
    const std::size_t length = packet[8] * 256U + packet[9];
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

TEST_F(DdpSenders, DdpShowsTheWholeWallAlsoWhenItFillsItsPackets) {
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

TEST_F(DdpSenders, DdpNumbersItsPacketsUnlessAPictureHasMoreThanTen) {
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

TEST_F(DdpSenders, AWallWithoutLampsSendsNothingByDdp) {
  lamps = 0;
  begin("ddp@10.0.0.1");
  runUntil(5s);
  EXPECT_THAT(network.calls, IsEmpty());
}

}  // namespace
}  // namespace korvane
