#include <arpa/inet.h>
#include <linux/errqueue.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

#include "platform/Network.h"

namespace korvane {
namespace {

// Enough for routed lighting networks; the system's own default, 1, ends at the first router.
constexpr int kMulticastHops = 64;

std::string errorText(int error) { return std::system_category().message(error); }

sockaddr_in socketAddress(const Endpoint& endpoint) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(static_cast<std::uint16_t>(endpoint.port));
  address.sin_addr.s_addr = htonl(endpoint.address);
  return address;
}

Endpoint endpointOf(const sockaddr_in& address) {
  return {ntohl(address.sin_addr.s_addr), ntohs(address.sin_port)};
}

class MachineSocket : public UdpSocket {
 public:
  /// Takes an open socket over.
  explicit MachineSocket(int socket) : socket_(socket) {}
  ~MachineSocket() override { close(socket_); }
  MachineSocket(const MachineSocket&) = delete;
  MachineSocket& operator=(const MachineSocket&) = delete;

  std::string send(std::span<const Datagram> datagrams) override;
  std::optional<Received> receive(std::span<std::uint8_t> buffer) override;

 private:
  std::string takeRefusals();

  int socket_;
  // Kept, so that sending takes no memory.
  std::vector<mmsghdr> messages_;
  std::vector<iovec> pieces_;
  std::vector<sockaddr_in> addresses_;
};

std::string MachineSocket::send(std::span<const Datagram> datagrams) {
  std::string problem = takeRefusals();
  const std::size_t count = datagrams.size();
  messages_.assign(count, {});
  pieces_.resize(count);
  addresses_.resize(count);
  for (std::size_t i = 0; i < count; ++i) {
    const Datagram& datagram = datagrams[i];
    pieces_[i] = {const_cast<std::uint8_t*>(datagram.bytes.data()), datagram.bytes.size()};
    addresses_[i] = socketAddress(datagram.to);
    messages_[i].msg_hdr.msg_name = &addresses_[i];
    messages_[i].msg_hdr.msg_namelen = sizeof addresses_[i];
    messages_[i].msg_hdr.msg_iov = &pieces_[i];
    messages_[i].msg_hdr.msg_iovlen = 1;
  }
  for (std::size_t done = 0; done < count;) {
    const int sent = sendmmsg(socket_, &messages_[done], static_cast<unsigned>(count - done),
                              MSG_DONTWAIT | MSG_NOSIGNAL);
    if (sent < 0 && errno == EINTR) continue;
    if (sent < 0) problem = errorText(errno);
    done += static_cast<std::size_t>(sent > 0 ? sent : 1);  // one that fails keeps no other back
  }
  return problem;
}

/// What receivers and routers answered to earlier datagrams: the text of the last one.
std::string MachineSocket::takeRefusals() {
  std::string problem;
  for (;;) {
    std::array<char, 512> control{};
    sockaddr_in to{};
    msghdr message{};
    message.msg_name = &to;
    message.msg_namelen = sizeof to;
    message.msg_control = control.data();
    message.msg_controllen = control.size();
    if (recvmsg(socket_, &message, MSG_ERRQUEUE | MSG_DONTWAIT) < 0) break;
    for (cmsghdr* part = CMSG_FIRSTHDR(&message); part != nullptr;
         part = CMSG_NXTHDR(&message, part)) {
      if (part->cmsg_level != IPPROTO_IP || part->cmsg_type != IP_RECVERR) continue;
      const auto* error = reinterpret_cast<const sock_extended_err*>(CMSG_DATA(part));
      problem = errorText(static_cast<int>(error->ee_errno));
    }
  }
  int pending = 0;  // would otherwise be told in place of sending
  socklen_t size = sizeof pending;
  getsockopt(socket_, SOL_SOCKET, SO_ERROR, &pending, &size);
  return problem;
}

std::optional<UdpSocket::Received> MachineSocket::receive(std::span<std::uint8_t> buffer) {
  sockaddr_in from{};
  socklen_t size = sizeof from;
  for (int tries = 0; tries < 2; ++tries) {  // the first one may only tell an error
    const ssize_t count = recvfrom(socket_, buffer.data(), buffer.size(), MSG_DONTWAIT,
                                   reinterpret_cast<sockaddr*>(&from), &size);
    if (count >= 0) return Received{endpointOf(from), static_cast<std::size_t>(count)};
  }
  return std::nullopt;
}

bool setOption(int socket, int level, int option, int value) {
  return setsockopt(socket, level, option, &value, sizeof value) == 0;
}

// A socket that is bound to its group takes no datagram from a receiver on this machine.
bool bindTo(int socket, const SocketSettings& settings) {
  if (settings.port == 0) return true;
  if (settings.group != 0 && !setOption(socket, SOL_SOCKET, SO_REUSEADDR, 1)) return false;
  const sockaddr_in place = socketAddress({settings.group, settings.port});
  return bind(socket, reinterpret_cast<const sockaddr*>(&place), sizeof place) == 0;
}

bool join(int socket, std::uint32_t group) {
  ip_mreqn membership{};
  membership.imr_multiaddr.s_addr = htonl(group);
  return group == 0 ||
         setsockopt(socket, IPPROTO_IP, IP_ADD_MEMBERSHIP, &membership, sizeof membership) == 0;
}

bool configure(int socket, const SocketSettings& settings) {
  const bool toInterface =
      settings.interface.empty() ||
      setsockopt(socket, SOL_SOCKET, SO_BINDTODEVICE, settings.interface.data(),
                 static_cast<socklen_t>(settings.interface.size())) == 0;
  return toInterface && setOption(socket, SOL_SOCKET, SO_BROADCAST, 1) &&
         setOption(socket, IPPROTO_IP, IP_MULTICAST_TTL, kMulticastHops) &&
         setOption(socket, IPPROTO_IP, IP_MULTICAST_LOOP, 1) &&
         setOption(socket, IPPROTO_IP, IP_RECVERR, 1) && bindTo(socket, settings) &&
         join(socket, settings.group);
}

class MachineNetwork : public Network {
 public:
  std::unique_ptr<UdpSocket> open(const SocketSettings& settings, std::string& error) override {
    const int opened = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (opened >= 0 && configure(opened, settings)) return std::make_unique<MachineSocket>(opened);
    error = errorText(errno);
    if (opened >= 0) close(opened);
    return nullptr;
  }
};

}  // namespace

std::optional<std::uint32_t> parseAddress(const std::string& text) {
  in_addr parsed{};
  if (inet_pton(AF_INET, text.c_str(), &parsed) != 1) return std::nullopt;
  return ntohl(parsed.s_addr);
}

std::string addressText(std::uint32_t address) {
  return std::to_string(address >> 24) + "." + std::to_string(address >> 16 & 255) + "." +
         std::to_string(address >> 8 & 255) + "." + std::to_string(address & 255);
}

bool isMulticast(std::uint32_t address) { return address >> 28 == 14; }

std::string portTakenText() { return errorText(EADDRINUSE); }

Network& machineNetwork() {
  static MachineNetwork network;
  return network;
}

}  // namespace korvane
