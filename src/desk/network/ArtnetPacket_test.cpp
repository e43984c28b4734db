#include "desk/network/ArtnetPacket.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

/// The packet before its slots, written out from the table of Art-Net 4.
std::vector<std::uint8_t> expectedHead(std::uint8_t subUni, std::uint8_t net) {
  return {'A',    'r',  't', '-', 'N', 'e', 't', 0,  // 0: identifier
          0x00,   0x50,                              // 8: OpDmx, low byte first
          0,      14,                                // 10: protocol version
          0x56,   0,                                 // 12: sequence, physical port
          subUni, net,                               // 14: Port-Address
          0x02,   0x00};                             // 16: length 512
}

TEST(ArtnetPacket, EqualsTheProtocolsTableByteForByte) {
  Slots slots{};
  for (std::size_t i = 0; i < slots.size(); ++i)
    slots[i] = static_cast<std::uint8_t>(255 - i % 251);
  auto expected = expectedHead(0x34, 0x12);
  expected.insert(expected.end(), slots.begin(), slots.end());
  ASSERT_EQ(expected.size(), 530U);
  EXPECT_EQ(artnetPacket({{}, 0x1234, 0x56, false}, slots), expected);
}

TEST(ArtnetPacket, PortAddressReachesFrom0To32767) {
  const struct {
    int universe;
    std::uint8_t subUni, net;
  } cases[] = {{0, 0, 0}, {255, 0xff, 0}, {256, 0, 1}, {32767, 0xff, 0x7f}};
  for (const auto& c : cases) {
    auto expected = expectedHead(c.subUni, c.net);
    expected.resize(530, 0);
    EXPECT_EQ(artnetPacket({{}, c.universe, 0x56, false}, Slots{}), expected) << c.universe;
  }
}

}  // namespace
}  // namespace korvane
