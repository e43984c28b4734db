#pragma once

#include <optional>
#include <string>

#include "desk/network/Packet.h"

namespace korvane {

inline constexpr int kSacnPort = 5568;
inline constexpr int kSacnLastUniverse = 63999;
/// The universe whose group takes the discovery packets (ANSI E1.31-2018, 6.2.7).
inline constexpr int kSacnDiscoveryUniverse = 64214;
/// Shortest packet that sacnSource understands.
inline constexpr std::size_t kSacnHeadSize = 126;

/// The E1.31 data packet for all 512 slots: 638 bytes (ANSI E1.31-2018, Table 4-1).
std::vector<std::uint8_t> sacnPacket(const PacketHead& head, const Slots& slots);

/// The packet that releases the values of the data packets that name this universe: 49 bytes (ANSI
/// E1.31-2018, Table 4-2).
std::vector<std::uint8_t> sacnSynchronisation(const Uuid& component, int universe,
                                              std::uint8_t sequence);

/// The packet that tells which universes a source sends, in rising order, up to 512 (ANSI
/// E1.31-2018, Table 4-3).
std::vector<std::uint8_t> sacnDiscovery(const Uuid& component, std::string_view source,
                                        std::span<const int> universes);

/// What a data packet says of its source.
struct SacnSource {
  Uuid component{};
  std::string name;
  int priority = 0;
  int universe = 0;
  bool terminated = false;
};

/// Reads the head of a packet; nothing for one that is no data packet.
std::optional<SacnSource> sacnSource(std::span<const std::uint8_t> packet);

}  // namespace korvane
