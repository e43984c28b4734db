#pragma once

#include <optional>
#include <string>

#include "desk/network/Packet.h"

namespace korvane {

inline constexpr int kArtnetPort = 6454;
inline constexpr int kArtnetLastUniverse = 32767;

/// The ArtDmx packet for all 512 slots: 530 bytes (Art-Net 4, "ArtDmx packet definition").
std::vector<std::uint8_t> artnetPacket(const PacketHead& head, const Slots& slots);

/// The packet that lets nodes show the values that they hold: 14 bytes ("ArtSync").
std::vector<std::uint8_t> artnetSync();

/// The packet that nodes answer: 14 bytes ("ArtPoll").
std::vector<std::uint8_t> artnetPoll();

/// What an ArtPollReply says of a node: the port addresses from which its outputs take values.
struct ArtnetReply {
  std::string name;            ///< The long name, or the short one.
  std::vector<int> universes;  ///< Up to four.
  int bind = 0;                ///< Tells apart the replies of one node with more than four ports.
};

/// Reads a reply; nothing for a packet of another kind.
std::optional<ArtnetReply> artnetReply(std::span<const std::uint8_t> packet);

/// For people, who count in both ways: "19 (net 0, sub-net 1, universe 3)".
std::string describePortAddress(int portAddress);

}  // namespace korvane
