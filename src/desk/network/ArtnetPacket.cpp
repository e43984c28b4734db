#include "desk/network/ArtnetPacket.h"

namespace korvane {
namespace {

// The field numbers are those of the ArtDmx packet definition of Art-Net 4.
constexpr std::size_t kPacketSize = 530;
constexpr std::string_view kIdentifier = "Art-Net";  // 1: ended by a zero
constexpr std::size_t kIdentifierWidth = 8;
constexpr unsigned kOpDmxLowByte = 0x00;  // 2: OpDmx 0x5000, low byte first
constexpr unsigned kOpDmxHighByte = 0x50;
constexpr unsigned kProtocolVersion = 14;  // 3, 4
constexpr unsigned kPhysicalPort = 0;      // 6: informative only

}  // namespace

std::vector<std::uint8_t> artnetPacket(const PacketHead& head, const Slots& slots) {
  const auto portAddress = static_cast<unsigned>(head.universe);
  PacketWriter packet(kPacketSize);
  packet.text(kIdentifier, kIdentifierWidth);
  packet.u8(kOpDmxLowByte);
  packet.u8(kOpDmxHighByte);
  packet.u16(kProtocolVersion);
  packet.u8(head.sequence);  // 5: 1 - 255
  packet.u8(kPhysicalPort);
  packet.u8(portAddress & 255);                     // 7, SubUni: the low byte
  packet.u8(portAddress >> 8);                      // 8, Net: the top 7 bits
  packet.u16(static_cast<unsigned>(slots.size()));  // 9, 10: an even number, 2 - 512
  packet.bytes(slots);                              // 11
  return packet.take();
}

}  // namespace korvane
