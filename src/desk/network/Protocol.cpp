#include "desk/network/Protocol.h"

#include <algorithm>

#include "desk/network/ArtnetPacket.h"
#include "desk/network/SacnPacket.h"

namespace korvane {
namespace {

/// ANSI E1.31-2018, 9.3.1: 239.255, then the universe's high and low byte.
std::string sacnMulticastGroup(int universe) {
  return "239.255." + std::to_string(universe / 256) + "." + std::to_string(universe % 256);
}

/// The limited broadcast: it needs no knowledge of the subnet or of the receivers.
std::string limitedBroadcast(int) { return "255.255.255.255"; }

// sACN: universes 6.2.7, port Appendix A (ACN_SDT_MULTICAST_PORT), sequence 6.2.5, three packets
// with the bit Stream_Terminated 6.2.6 (ANSI E1.31-2018).
// Art-Net: 15-bit Port-Address; port 0x1936; sequence 1 - 255, as 0 means that there is none. It
// has no farewell: receivers keep the last values, which is what an operator expects of it.
constexpr Protocol kProtocols[] = {
    {"sacn", "sACN", 1, 63999, 5568, 0, 3, sacnMulticastGroup, sacnPacket},
    {"artnet", "Art-Net", 0, 32767, 6454, 1, 0, limitedBroadcast, artnetPacket},
};

}  // namespace

std::span<const Protocol> protocols() { return kProtocols; }

const Protocol* findProtocol(std::string_view word) {
  const auto* found = std::ranges::find(kProtocols, word, &Protocol::word);
  return found == std::end(kProtocols) ? nullptr : found;
}

}  // namespace korvane
