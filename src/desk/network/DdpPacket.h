#pragma once

#include <vector>

#include "desk/network/Packet.h"

namespace korvane {

inline constexpr int kDdpPort = 4048;
/// Most bytes of values in a packet: 480 lamps.
inline constexpr std::size_t kDdpMostData = 1440;

/// A packet of the Distributed Display Protocol, version 1: 10 bytes, then RGB values of 8 bits for
/// the display, from byte `offset` of the picture on. `sequence`: 1 - 15, 0 for none. `push`: the
/// picture is complete and to be shown.
std::vector<std::uint8_t> ddpPacket(std::uint8_t sequence, std::uint32_t offset, bool push,
                                    std::span<const std::uint8_t> values);

}  // namespace korvane
