#pragma once

#include <deque>
#include <map>

#include "platform/Network.h"

namespace korvane {

/// A network that a test holds in its hand: it keeps what is sent, delivers what the test says, and
/// fails as the test wants it to.
class TestNetwork : public Network {
 public:
  struct Call {  ///< one system call
    std::vector<Datagram> datagrams;
  };

  std::unique_ptr<UdpSocket> open(const SocketSettings& settings, std::string& error) override {
    if (const auto found = openErrors.find(settings.port); found != openErrors.end()) {
      error = found->second;
      return nullptr;
    }
    ++opened;
    return std::make_unique<Socket>(*this, settings);
  }

  /// What comes to sockets that were opened for this port.
  void deliver(int port, const Endpoint& from, std::vector<std::uint8_t> bytes) {
    coming[port].push_back({from, std::move(bytes)});
  }

  std::vector<Call> calls;
  std::string sendError;                       ///< of every send, while it is not empty
  std::map<int, std::string> openErrors;       ///< by port; 0: of sockets to send by
  std::map<int, std::deque<Datagram>> coming;  ///< by port; `to` is who sent it
  int opened = 0;

 private:
  class Socket : public UdpSocket {
   public:
    Socket(TestNetwork& network, const SocketSettings& settings)
        : network_(network), settings_(settings) {}

    std::string send(std::span<const Datagram> datagrams) override {
      if (network_.sendError.empty())
        network_.calls.push_back({{datagrams.begin(), datagrams.end()}});
      return network_.sendError;
    }
    std::optional<Received> receive(std::span<std::uint8_t> buffer) override {
      auto& waiting = network_.coming[settings_.port];
      if (waiting.empty()) return std::nullopt;
      const Datagram datagram = std::move(waiting.front());
      waiting.pop_front();
      const std::size_t size = std::min(buffer.size(), datagram.bytes.size());
      std::copy_n(datagram.bytes.begin(), size, buffer.begin());
      return Received{datagram.to, size};
    }

   private:
    TestNetwork& network_;
    SocketSettings settings_;
  };
};

}  // namespace korvane
