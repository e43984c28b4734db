#pragma once

#include "desk/network/Packet.h"

namespace korvane {

/// The ArtDmx packet for all 512 slots: 530 bytes (Art-Net 4, "ArtDmx packet definition").
std::vector<std::uint8_t> artnetPacket(const PacketHead& head, const Slots& slots);

}  // namespace korvane
