#pragma once

#include <array>
#include <optional>

#include "testing/UdpReceiver.h"

namespace korvane {

/// A receiver of lamp values on this machine, for tests.
class Receiver {
 public:
  std::string target() const { return "sacn:1" + receiver_.place(); }
  /// The first levels of the next sACN packet; nothing if none comes for 5 s.
  std::optional<std::array<int, 3>> next() {
    constexpr std::size_t kFirstLevel = 126;  // behind the start code
    const std::vector<std::uint8_t> bytes = receiver_.packet();
    if (bytes.size() <= kFirstLevel + 2) return std::nullopt;
    return std::array<int, 3>{bytes[kFirstLevel], bytes[kFirstLevel + 1], bytes[kFirstLevel + 2]};
  }

 private:
  UdpReceiver receiver_;
};

}  // namespace korvane
