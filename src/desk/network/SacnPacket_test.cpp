#include "desk/network/SacnPacket.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

const Uuid kComponent = {0xde, 0xad, 0xbe, 0xef, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};

Slots ramp() {
  Slots slots{};
  for (std::size_t i = 0; i < slots.size(); ++i) slots[i] = static_cast<std::uint8_t>(i * 7 + 1);
  return slots;
}

/// The packet before its slots, written out from the tables of ANSI E1.31-2018 and by no code of
/// ours: universe 0x1234, sequence 0x56.
std::vector<std::uint8_t> expectedHead(std::uint8_t options) {
  std::vector<std::uint8_t> head = {
      0x00, 0x10, 0x00, 0x00,                                    // 0: preamble, post-amble sizes
      'A',  'S',  'C',  '-',  'E', '1', '.', '1', '7', 0, 0, 0,  // 4: ACN packet identifier
      0x72, 0x6e,                                                // 16: flags 7, length 622
      0x00, 0x00, 0x00, 0x04,                                    // 18: root vector
      0xde, 0xad, 0xbe, 0xef, 1,   2,   3,   4,   5,   6, 7, 8, 9, 10, 11, 12,  // 22: CID
      0x72, 0x58,                              // 38: flags 7, length 600
      0x00, 0x00, 0x00, 0x02,                  // 40: framing vector
      'K',  'o',  'r',  'v',  'a', 'n', 'e'};  // 44: source name
  head.resize(44 + 64, 0);
  const std::vector<std::uint8_t> rest = {100,            // 108: priority
                                          0x00, 0x00,     // 109: synchronization address
                                          0x56, options,  // 111: sequence, options
                                          0x12, 0x34,     // 113: universe
                                          0x72, 0x0b,     // 115: flags 7, length 523
                                          0x02, 0xa1,     // 117: DMP vector, types
                                          0x00, 0x00,    0x00, 0x01,  // 119: first property, step
                                          0x02, 0x01,                 // 123: 513 values
                                          0x00};                      // 125: start code
  head.insert(head.end(), rest.begin(), rest.end());
  return head;
}

TEST(SacnPacket, EqualsTheStandardsTablesByteForByte) {
  auto expected = expectedHead(0);
  ASSERT_EQ(expected.size(), 126U);
  const Slots slots = ramp();
  expected.insert(expected.end(), slots.begin(), slots.end());
  ASSERT_EQ(expected.size(), 638U);
  EXPECT_EQ(sacnPacket({kComponent, 0x1234, 0x56, false}, slots), expected);
}

TEST(SacnPacket, TerminationIsOneBitOfTheOptions) {
  auto expected = expectedHead(0x40);
  expected.resize(638, 0);
  EXPECT_EQ(sacnPacket({kComponent, 0x1234, 0x56, true}, Slots{}), expected);
}

}  // namespace
}  // namespace korvane
