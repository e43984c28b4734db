#include "desk/network/SacnPacket.h"

#include <algorithm>
#include <cstring>

namespace korvane {
namespace {

// All clauses are those of ANSI E1.31-2018.
constexpr std::size_t kDataSize = 638;               // Table 4-1
constexpr std::size_t kSynchronisationSize = 49;     // Table 4-2
constexpr std::size_t kDiscoveryHeadSize = 120;      // Table 4-3, without the universes
constexpr std::size_t kRootLengthAt = 16;            // 5.4: the length counts from its own field on
constexpr std::size_t kFramingLengthAt = 38;         // 6.1
constexpr std::size_t kDmpLengthAt = 115;            // 7.1
constexpr std::size_t kDiscoveryListLengthAt = 112;  // 8.1
constexpr unsigned kPreambleSize = 0x0010;           // 5.1
constexpr unsigned kPostambleSize = 0x0000;          // 5.2
constexpr std::string_view kAcnIdentifier = "ASC-E1.17";  // 5.3
constexpr std::size_t kAcnIdentifierWidth = 12;
constexpr unsigned kPduFlags = 0x7000;                   // 5.4, 6.1, 7.1
constexpr unsigned kRootVectorData = 0x00000004;         // 5.5: VECTOR_ROOT_E131_DATA
constexpr unsigned kRootVectorExtended = 0x00000008;     // 5.5: VECTOR_ROOT_E131_EXTENDED
constexpr unsigned kFramingVectorData = 0x00000002;      // 6.2.1: VECTOR_E131_DATA_PACKET
constexpr unsigned kVectorSynchronisation = 0x00000001;  // 6.3.1: ..._EXTENDED_SYNCHRONIZATION
constexpr unsigned kVectorDiscovery = 0x00000002;        // 6.4.1: VECTOR_E131_EXTENDED_DISCOVERY
constexpr unsigned kVectorUniverseList = 0x00000001;     // 8.2: ..._UNIVERSE_LIST
constexpr std::size_t kSourceNameWidth = 64;             // 6.2.2: UTF-8, ended by a zero
constexpr unsigned kStreamTerminated = 0x40;             // 6.2.6: bit 6 of the options
constexpr unsigned kDmpVectorSetProperty = 0x02;         // 7.2: VECTOR_DMP_SET_PROPERTY
constexpr unsigned kAddressAndDataType = 0xa1;           // 7.3
constexpr unsigned kFirstProperty = 0x0000;              // 7.4
constexpr unsigned kPropertyStep = 0x0001;               // 7.5
constexpr unsigned kNullStartCode = 0;                   // 7.7, ANSI E1.11 8.5.1

void writePduLength(PacketWriter& packet, std::size_t size, std::size_t at) {
  packet.u16(kPduFlags | static_cast<unsigned>(size - at));
}

void writeRootLayer(PacketWriter& packet, std::size_t size, unsigned vector,
                    const Uuid& component) {
  packet.u16(kPreambleSize);
  packet.u16(kPostambleSize);
  packet.text(kAcnIdentifier, kAcnIdentifierWidth);
  writePduLength(packet, size, kRootLengthAt);
  packet.u32(vector);
  packet.bytes(component);
}

void writeSource(PacketWriter& packet, std::string_view name) {
  packet.text(name.substr(0, kSourceNameWidth - 1), kSourceNameWidth);
}

void writeFramingLayer(PacketWriter& packet, const PacketHead& head) {
  writePduLength(packet, kDataSize, kFramingLengthAt);
  packet.u32(kFramingVectorData);
  writeSource(packet, head.source);
  packet.u8(static_cast<unsigned>(head.priority));          // 6.2.3
  packet.u16(static_cast<unsigned>(head.synchronisation));  // 6.2.4
  packet.u8(head.sequence);
  packet.u8(head.terminated ? kStreamTerminated : 0);
  packet.u16(static_cast<unsigned>(head.universe));
}

void writeDmpLayer(PacketWriter& packet, const Slots& slots) {
  writePduLength(packet, kDataSize, kDmpLengthAt);
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
  PacketWriter packet(kDataSize);
  writeRootLayer(packet, kDataSize, kRootVectorData, head.component);
  writeFramingLayer(packet, head);
  writeDmpLayer(packet, slots);
  return packet.take();
}

std::vector<std::uint8_t> sacnSynchronisation(const Uuid& component, int universe,
                                              std::uint8_t sequence) {
  PacketWriter packet(kSynchronisationSize);
  writeRootLayer(packet, kSynchronisationSize, kRootVectorExtended, component);
  writePduLength(packet, kSynchronisationSize, kFramingLengthAt);
  packet.u32(kVectorSynchronisation);
  packet.u8(sequence);
  packet.u16(static_cast<unsigned>(universe));
  packet.u16(0);  // 6.3.4: reserved
  return packet.take();
}

std::vector<std::uint8_t> sacnDiscovery(const Uuid& component, std::string_view source,
                                        std::span<const int> universes) {
  const std::size_t size = kDiscoveryHeadSize + 2 * universes.size();
  PacketWriter packet(size);
  writeRootLayer(packet, size, kRootVectorExtended, component);
  writePduLength(packet, size, kFramingLengthAt);
  packet.u32(kVectorDiscovery);
  writeSource(packet, source);
  packet.u32(0);  // 6.4.3: reserved
  writePduLength(packet, size, kDiscoveryListLengthAt);
  packet.u32(kVectorUniverseList);
  packet.u8(0);  // 8.3, 8.4: this page and the last one
  packet.u8(0);
  for (const int universe : universes) packet.u16(static_cast<unsigned>(universe));
  return packet.take();
}

std::optional<SacnSource> sacnSource(std::span<const std::uint8_t> packet) {
  constexpr std::size_t kCidAt = 22, kFramingVectorAt = 40, kNameAt = 44, kPriorityAt = 108,
                        kOptionsAt = 112, kUniverseAt = 113;
  const auto u16 = [&](std::size_t at) { return packet[at] << 8 | packet[at + 1]; };
  if (packet.size() < kDmpLengthAt || std::memcmp(&packet[4], kAcnIdentifier.data(), 9) != 0 ||
      u16(18) != 0 || u16(20) != kRootVectorData || u16(kFramingVectorAt) != 0 ||
      u16(kFramingVectorAt + 2) != kFramingVectorData)
    return std::nullopt;
  SacnSource source;
  std::copy_n(&packet[kCidAt], source.component.size(), source.component.begin());
  const char* name = reinterpret_cast<const char*>(&packet[kNameAt]);
  source.name.assign(name, strnlen(name, kSourceNameWidth));
  source.priority = packet[kPriorityAt];
  source.terminated = (packet[kOptionsAt] & kStreamTerminated) != 0;
  source.universe = u16(kUniverseAt);
  return source;
}

}  // namespace korvane
