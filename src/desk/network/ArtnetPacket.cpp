#include "desk/network/ArtnetPacket.h"

#include <algorithm>
#include <cstring>

namespace korvane {
namespace {

// The field numbers are those of the packet definitions of Art-Net 4.
constexpr std::size_t kDmxSize = 530;
constexpr std::size_t kSmallSize = 14;
constexpr std::string_view kIdentifier = "Art-Net";  // 1: ended by a zero
constexpr std::size_t kIdentifierWidth = 8;
constexpr unsigned kOpPoll = 0x2000, kOpPollReply = 0x2100, kOpDmx = 0x5000, kOpSync = 0x5200;
constexpr unsigned kProtocolVersion = 14;  // 3, 4
constexpr unsigned kPhysicalPort = 0;      // 6: informative only
constexpr unsigned kTellChanges = 0x02;    // ArtPoll 5: reply whenever something changes, too

void writeHead(PacketWriter& packet, unsigned operation) {
  packet.text(kIdentifier, kIdentifierWidth);
  packet.u8(operation & 255);  // 2: low byte first
  packet.u8(operation >> 8);
  packet.u16(kProtocolVersion);
}

std::vector<std::uint8_t> smallPacket(unsigned operation, unsigned flags) {
  PacketWriter packet(kSmallSize);
  writeHead(packet, operation);
  packet.u8(flags);
  packet.u8(0);
  return packet.take();
}

std::string textAt(std::span<const std::uint8_t> packet, std::size_t at, std::size_t width) {
  const char* text = reinterpret_cast<const char*>(&packet[at]);
  return {text, strnlen(text, width)};
}

}  // namespace

std::vector<std::uint8_t> artnetPacket(const PacketHead& head, const Slots& slots) {
  const auto portAddress = static_cast<unsigned>(head.universe);
  PacketWriter packet(kDmxSize);
  writeHead(packet, kOpDmx);
  packet.u8(head.sequence);  // 5: 1 - 255
  packet.u8(kPhysicalPort);
  packet.u8(portAddress & 255);                     // 7, SubUni: the low byte
  packet.u8(portAddress >> 8);                      // 8, Net: the top 7 bits
  packet.u16(static_cast<unsigned>(slots.size()));  // 9, 10: an even number, 2 - 512
  packet.bytes(slots);                              // 11
  return packet.take();
}

std::vector<std::uint8_t> artnetSync() { return smallPacket(kOpSync, 0); }

std::vector<std::uint8_t> artnetPoll() { return smallPacket(kOpPoll, kTellChanges); }

std::optional<ArtnetReply> artnetReply(std::span<const std::uint8_t> packet) {
  constexpr std::size_t kLeast = 207, kNet = 18, kSubNet = 19, kShortName = 26, kLongName = 44,
                        kPorts = 173, kKinds = 174, kOutputs = 190, kBind = 211;
  if (packet.size() < kLeast ||
      std::memcmp(packet.data(), kIdentifier.data(), kIdentifier.size() + 1) != 0 ||
      (packet[8] | packet[9] << 8) != kOpPollReply)
    return std::nullopt;
  ArtnetReply reply;
  reply.name = textAt(packet, kLongName, 64);
  if (reply.name.empty()) reply.name = textAt(packet, kShortName, 18);
  reply.bind = packet.size() > kBind ? packet[kBind] : 0;
  const std::size_t ports = std::min<std::size_t>(packet[kPorts], 4);
  for (std::size_t port = 0; port < ports; ++port) {
    if ((packet[kKinds + port] & 0x80) == 0) continue;  // it has no output from the network there
    reply.universes.push_back((packet[kNet] & 127) << 8 | (packet[kSubNet] & 15) << 4 |
                              (packet[kOutputs + port] & 15));
  }
  return reply;
}

std::string describePortAddress(int portAddress) {
  return std::to_string(portAddress) + " (net " + std::to_string(portAddress >> 8) + ", sub-net " +
         std::to_string(portAddress >> 4 & 15) + ", universe " + std::to_string(portAddress & 15) +
         ")";
}

}  // namespace korvane
