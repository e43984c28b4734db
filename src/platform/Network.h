// Datagrams and the network that carries them, as a seam: a simulation can stand in for it.
#pragma once

#include <compare>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace korvane {

/// An IPv4 address and a UDP port.
struct Endpoint {
  std::uint32_t address = 0;  ///< As a number: 127.0.0.1 is 0x7f000001.
  int port = 0;

  auto operator<=>(const Endpoint&) const = default;  // NOLINT(modernize-use-nullptr): no pointer
};

/// The address that a text such as "192.168.1.20" means; nothing for others.
std::optional<std::uint32_t> parseAddress(const std::string& text);
std::string addressText(std::uint32_t address);
bool isMulticast(std::uint32_t address);

struct Datagram {
  Endpoint to;
  std::vector<std::uint8_t> bytes;
};

/// How a socket is to be opened.
struct SocketSettings {
  std::string interface {};  ///< Such as "eth0"; empty: the routing table decides.
  int port = 0;              ///< To receive on; 0: any.
  /// Multicast group to receive, and nothing else, beside other programs that do; 0: all that comes
  /// to the port, alone.
  std::uint32_t group = 0;
};

/// An open socket. None of its calls ever waits.
class UdpSocket {
 public:
  virtual ~UdpSocket() = default;

  /// Sends the datagrams, all in one system call while nothing is wrong; those that can't be sent
  /// are left out. Returns the system's text of what failed, with these or with earlier ones, such
  /// as "Network is unreachable". Empty: all is well.
  virtual std::string send(std::span<const Datagram> datagrams) = 0;
  /// The next datagram that has come, cut to the buffer: who sent it and how many bytes of it are
  /// in the buffer.
  struct Received {
    Endpoint from;
    std::size_t size;
  };
  virtual std::optional<Received> receive(std::span<std::uint8_t> buffer) = 0;
};

class Network {
 public:
  virtual ~Network() = default;

  /// Opens a socket; null, and the system's text of why not, if that can't be done.
  virtual std::unique_ptr<UdpSocket> open(const SocketSettings& settings, std::string& error) = 0;
};

/// The system's text for a port that another program holds.
std::string portTakenText();

/// The network of this machine.
Network& machineNetwork();

}  // namespace korvane
