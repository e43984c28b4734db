#pragma once

#include <map>

#include "desk/network/ArtnetPacket.h"
#include "desk/output/UdpCarrier.h"

namespace korvane {

/// Art-Net 4: by broadcast, to one address, or to the nodes that answer a poll.
class ArtnetCarrier : public UdpCarrier {
 public:
  ArtnetCarrier(const OutputConfig& config, const SenderIdentity& identity, Network& network)
      : UdpCarrier(config, network), sequences_(*identity.sequences) {}

  std::string concern() const override;
  std::vector<std::string> receivers() const override;

 protected:
  void write(const OutputPicture& picture, bool farewell, std::vector<Datagram>& out) override;
  TimePoint writeErrand(TimePoint now, std::vector<Datagram>& out) override;
  std::vector<SocketSettings> ears() const override;
  bool asks() const override { return config_.toNodes; }
  void hear(const Endpoint& from, std::span<const std::uint8_t> bytes, TimePoint now) override;
  void forget(TimePoint now) override;

 private:
  struct Node {
    ArtnetReply reply;
    TimePoint heardAt;
  };
  using NodeKey = std::pair<std::uint32_t, int>;  ///< address and bind index

  std::vector<Endpoint> placesOf(int universe) const;
  Endpoint broadcast() const { return place(0xffffffff); }

  std::map<NodeKey, Node> nodes_;
  SequenceStore& sequences_;
  bool polled_ = false;
};

}  // namespace korvane
