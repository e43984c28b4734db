#pragma once

#include <string>
#include <string_view>

#include "desk/network/Protocol.h"

namespace korvane {

/// Where a stream goes. Made by parseOutputTarget, so its values are in range.
struct OutputTarget {
  const Protocol* protocol;
  int universe;
  std::string address;    ///< IPv4, unicast, multicast or broadcast.
  int port;               ///< 1 - 65535.
  std::string interface;  ///< Such as "eth0"; empty: the routing table decides.
};

/// Reads PROTOCOL:UNIVERSE[@ADDRESS[:PORT]][%INTERFACE], as in "sacn:1" (multicast),
/// "artnet:0" (broadcast), "artnet:0@192.168.1.20" (unicast), "sacn:1%eth0".
/// Throws std::invalid_argument whose text says what is wrong, for people to read.
OutputTarget parseOutputTarget(std::string_view text);

/// For people: "sACN universe 1 to 239.255.0.1:5568".
std::string describe(const OutputTarget& target);

}  // namespace korvane
