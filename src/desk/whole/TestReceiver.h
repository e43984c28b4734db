#pragma once

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvane {

/// A receiver of lamp values on this machine, for tests.
class Receiver {
 public:
  Receiver() : socket_(socket(AF_INET, SOCK_DGRAM | SOCK_NONBLOCK, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const any = reinterpret_cast<sockaddr*>(&address);
    if (bind(socket_, any, size) != 0 || getsockname(socket_, any, &size) != 0)
      throw std::runtime_error("no port of this machine is free");
    port_ = ntohs(address.sin_port);
  }
  ~Receiver() { close(socket_); }
  Receiver(const Receiver&) = delete;
  Receiver& operator=(const Receiver&) = delete;

  std::string target() const { return "sacn:1@127.0.0.1:" + std::to_string(port_); }
  /// The levels of each sACN packet that has come since the last call.
  std::vector<std::array<int, 3>> take() {
    constexpr std::size_t kFirstLevel = 126;  // behind the start code
    std::vector<std::array<int, 3>> frames;
    std::array<std::uint8_t, 1024> bytes{};
    while (recv(socket_, bytes.data(), bytes.size(), 0) > static_cast<ssize_t>(kFirstLevel + 2))
      frames.push_back({bytes[kFirstLevel], bytes[kFirstLevel + 1], bytes[kFirstLevel + 2]});
    return frames;
  }

 private:
  int socket_;
  int port_ = 0;
};

}  // namespace korvane
