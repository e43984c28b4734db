#include "desk/network/DdpPacket.h"

namespace korvane {
namespace {

constexpr std::size_t kHeadSize = 10;
constexpr unsigned kVersion = 0x40;  // byte 0: version 1
constexpr unsigned kPush = 0x01;
constexpr unsigned kRgb = 0x0b;      // byte 2: RGB, 8 bits each
constexpr unsigned kDisplay = 0x01;  // byte 3: the default output device

}  // namespace

std::vector<std::uint8_t> ddpPacket(std::uint8_t sequence, std::uint32_t offset, bool push,
                                    std::span<const std::uint8_t> values) {
  PacketWriter packet(kHeadSize + values.size());
  packet.u8(kVersion | (push ? kPush : 0));
  packet.u8(sequence);  // the lower four bits
  packet.u8(kRgb);
  packet.u8(kDisplay);
  packet.u32(offset);
  packet.u16(static_cast<unsigned>(values.size()));
  packet.bytes(values);
  return packet.take();
}

}  // namespace korvane
