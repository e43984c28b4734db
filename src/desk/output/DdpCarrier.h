#pragma once

#include "desk/output/UdpCarrier.h"

namespace korvane {

/// The Distributed Display Protocol: the whole wall in lamps' order, pushed at the last packet.
class DdpCarrier : public UdpCarrier {
 public:
  using UdpCarrier::UdpCarrier;

 protected:
  void write(const OutputPicture& picture, bool farewell, std::vector<Datagram>& out) override;

 private:
  std::uint8_t sequence_ = 0;
};

}  // namespace korvane
