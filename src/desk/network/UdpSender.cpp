#include "desk/network/UdpSender.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace korvane {
namespace {

// Enough for routed lighting networks; the system's own default, 1, ends at the first router.
constexpr int kMulticastHops = 64;

std::string errorText(int error) { return std::system_category().message(error); }

bool setOption(int socket, int level, int option, int value) {
  return setsockopt(socket, level, option, &value, sizeof value) == 0;
}

bool setOptions(int socket, const std::string& interface) {
  const bool bound =
      interface.empty() || setsockopt(socket, SOL_SOCKET, SO_BINDTODEVICE, interface.data(),
                                      static_cast<socklen_t>(interface.size())) == 0;
  return bound && setOption(socket, SOL_SOCKET, SO_BROADCAST, 1) &&
         setOption(socket, IPPROTO_IP, IP_MULTICAST_TTL, kMulticastHops) &&
         setOption(socket, IPPROTO_IP, IP_MULTICAST_LOOP, 1);
}

/// A connected socket is told when the receiver refuses packets.
bool connectTo(int socket, const OutputTarget& target) {
  sockaddr_in to{};
  to.sin_family = AF_INET;
  to.sin_port = htons(static_cast<std::uint16_t>(target.port));
  inet_pton(AF_INET, target.address.c_str(), &to.sin_addr);
  return connect(socket, reinterpret_cast<const sockaddr*>(&to), sizeof to) == 0;
}

}  // namespace

std::string UdpSender::send(std::span<const std::uint8_t> packet) {
  const bool opened = socket_ >= 0 || open();
  // The error of an earlier packet would otherwise be reported instead of sending this one.
  const int earlier = opened ? takePendingError() : 0;
  if (opened && ::send(socket_, packet.data(), packet.size(), MSG_DONTWAIT) >= 0) {
    return earlier == 0 ? "" : errorText(earlier);
  }
  const int error = errno;
  close();
  return errorText(error);
}

bool UdpSender::open() {
  socket_ = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  return socket_ >= 0 && setOptions(socket_, target_.interface) && connectTo(socket_, target_);
}

void UdpSender::close() {
  if (socket_ >= 0) ::close(socket_);
  socket_ = -1;
}

int UdpSender::takePendingError() {
  int error = 0;
  socklen_t size = sizeof error;
  getsockopt(socket_, SOL_SOCKET, SO_ERROR, &error, &size);
  return error;
}

}  // namespace korvane
