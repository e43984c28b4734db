#pragma once

#include <string>
#include <string_view>

#include "desk/network/Packet.h"

namespace korvane {

/// All that differs between the protocols; one row each in Protocol.cpp.
struct Protocol {
  std::string_view word;  ///< Names the protocol in a target's text.
  std::string_view name;  ///< For people.
  int minUniverse;
  int maxUniverse;
  int port;                              ///< UDP port of the receivers.
  std::uint8_t firstSequence;            ///< Sequence numbers run from here to 255 and start anew.
  int goodbyes;                          ///< Packets that tell the receivers of a clean end.
  std::string (*address)(int universe);  ///< Where packets go when no address is given.
  std::vector<std::uint8_t> (*packet)(const PacketHead&, const Slots&);
};

std::span<const Protocol> protocols();

/// The protocol with this word, or null.
const Protocol* findProtocol(std::string_view word);

}  // namespace korvane
