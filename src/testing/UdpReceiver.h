#pragma once

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvane {

/// Receives datagrams on a free port of this machine.
class UdpReceiver {
 public:
  UdpReceiver() {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const any = reinterpret_cast<sockaddr*>(&address);
    const timeval patience{.tv_sec = 5, .tv_usec = 0};
    setsockopt(socket_, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    if (bind(socket_, any, size) != 0 || getsockname(socket_, any, &size) != 0)
      throw std::runtime_error("no port of this machine is free");
    port = ntohs(address.sin_port);
  }
  ~UdpReceiver() { close(socket_); }
  UdpReceiver(const UdpReceiver&) = delete;
  UdpReceiver& operator=(const UdpReceiver&) = delete;

  /// Where it is, as a target has it.
  std::string place() const { return "@127.0.0.1:" + std::to_string(port); }
  /// The next packet, waiting up to 5 s; empty when none comes, or none is there.
  std::vector<std::uint8_t> packet(bool wait = true) const {
    std::vector<std::uint8_t> bytes(2000);
    const auto size = recv(socket_, bytes.data(), bytes.size(), wait ? 0 : MSG_DONTWAIT);
    bytes.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
    return bytes;
  }

  int port = 0;

 private:
  int socket_ = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
};

}  // namespace korvane
