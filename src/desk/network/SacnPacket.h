#pragma once

#include "desk/network/Packet.h"

namespace korvane {

/// The E1.31 data packet for all 512 slots: 638 bytes (ANSI E1.31-2018, Table 4-1).
std::vector<std::uint8_t> sacnPacket(const PacketHead& head, const Slots& slots);

}  // namespace korvane
