#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "desk/network/OutputTarget.h"

namespace korvane {

/// Sends datagrams to one place and never waits. After an error it opens its socket anew with the
/// next packet, so it recovers when a cable, a route or an interface comes back.
class UdpSender {
 public:
  explicit UdpSender(const OutputTarget& target) : target_(target) {}
  ~UdpSender() { close(); }
  UdpSender(const UdpSender&) = delete;
  UdpSender& operator=(const UdpSender&) = delete;

  /// Tries to send; returns the system's text of what failed, now or with an earlier packet, such
  /// as "Network is unreachable". Empty: all is well.
  std::string send(std::span<const std::uint8_t> packet);

 private:
  bool open();
  void close();
  int takePendingError();

  OutputTarget target_;
  int socket_ = -1;
};

}  // namespace korvane
