#include "desk/network/SacnPacket.h"

namespace korvane {
namespace {

// All clauses are those of ANSI E1.31-2018.
constexpr std::size_t kPacketSize = 638;      // Table 4-1
constexpr std::size_t kRootLengthAt = 16;     // 5.4: the length counts from its own field on
constexpr std::size_t kFramingLengthAt = 38;  // 6.1
constexpr std::size_t kDmpLengthAt = 115;     // 7.1
constexpr unsigned kPreambleSize = 0x0010;    // 5.1
constexpr unsigned kPostambleSize = 0x0000;   // 5.2
constexpr std::string_view kAcnIdentifier = "ASC-E1.17";  // 5.3
constexpr std::size_t kAcnIdentifierWidth = 12;
constexpr unsigned kPduFlags = 0x7000;               // 5.4, 6.1, 7.1
constexpr unsigned kRootVectorData = 0x00000004;     // 5.5: VECTOR_ROOT_E131_DATA
constexpr unsigned kFramingVectorData = 0x00000002;  // 6.2.1: VECTOR_E131_DATA_PACKET
constexpr std::string_view kSourceName = "Korvane";  // 6.2.2: UTF-8, ended by a zero
constexpr std::size_t kSourceNameWidth = 64;
constexpr unsigned kPriority = 100;               // 6.2.3: 0 - 200, the default is 100
constexpr unsigned kNotSynchronized = 0;          // 6.2.4
constexpr unsigned kStreamTerminated = 0x40;      // 6.2.6: bit 6 of the options
constexpr unsigned kDmpVectorSetProperty = 0x02;  // 7.2: VECTOR_DMP_SET_PROPERTY
constexpr unsigned kAddressAndDataType = 0xa1;    // 7.3
constexpr unsigned kFirstProperty = 0x0000;       // 7.4
constexpr unsigned kPropertyStep = 0x0001;        // 7.5
constexpr unsigned kNullStartCode = 0;            // 7.7, ANSI E1.11 8.5.1

static_assert(kSourceName.size() < kSourceNameWidth);

void writePduLength(PacketWriter& packet, std::size_t at) {
  packet.u16(kPduFlags | static_cast<unsigned>(kPacketSize - at));
}

void writeRootLayer(PacketWriter& packet, const PacketHead& head) {
  packet.u16(kPreambleSize);
  packet.u16(kPostambleSize);
  packet.text(kAcnIdentifier, kAcnIdentifierWidth);
  writePduLength(packet, kRootLengthAt);
  packet.u32(kRootVectorData);
  packet.bytes(head.component);
}

void writeFramingLayer(PacketWriter& packet, const PacketHead& head) {
  writePduLength(packet, kFramingLengthAt);
  packet.u32(kFramingVectorData);
  packet.text(kSourceName, kSourceNameWidth);
  packet.u8(kPriority);
  packet.u16(kNotSynchronized);
  packet.u8(head.sequence);
  packet.u8(head.terminated ? kStreamTerminated : 0);
  packet.u16(static_cast<unsigned>(head.universe));
}

void writeDmpLayer(PacketWriter& packet, const Slots& slots) {
  writePduLength(packet, kDmpLengthAt);
  packet.u8(kDmpVectorSetProperty);
  packet.u8(kAddressAndDataType);
  packet.u16(kFirstProperty);
  packet.u16(kPropertyStep);
  packet.u16(static_cast<unsigned>(1 + slots.size()));  // 7.6: the start code counts too
  packet.u8(kNullStartCode);
  packet.bytes(slots);
}

}  // namespace

std::vector<std::uint8_t> sacnPacket(const PacketHead& head, const Slots& slots) {
  PacketWriter packet(kPacketSize);
  writeRootLayer(packet, head);
  writeFramingLayer(packet, head);
  writeDmpLayer(packet, slots);
  return packet.take();
}

}  // namespace korvane
