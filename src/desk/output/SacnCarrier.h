#pragma once

#include <map>

#include "desk/network/SacnPacket.h"
#include "desk/output/UdpCarrier.h"

namespace korvane {

/// ANSI E1.31-2018: streams of universes, by multicast or to one address.
class SacnCarrier : public UdpCarrier {
 public:
  SacnCarrier(const OutputConfig& config, const SenderIdentity& identity, Network& network)
      : UdpCarrier(config, network), identity_(identity) {}

  int farewells() const override { return 3; }

 protected:
  void write(const OutputPicture& picture, bool farewell, std::vector<Datagram>& out) override;
  TimePoint writeErrand(TimePoint now, std::vector<Datagram>& out) override;
  std::vector<SocketSettings> ears() const override;
  void hear(const Endpoint& from, std::span<const std::uint8_t> bytes, TimePoint now) override;
  void forget(TimePoint now) override;
  std::string heard() const override;

 private:
  /// A source of others on one of our universes.
  struct Foreign {
    SacnSource source;
    Endpoint from;
    TimePoint heardAt;
  };

  Endpoint placeOf(int universe) const;

  SenderIdentity identity_;
  std::map<std::pair<int, Uuid>, Foreign> foreign_;
  std::uint8_t synchronised_ = 0;  ///< number of the last synchronisation packet
};

}  // namespace korvane
