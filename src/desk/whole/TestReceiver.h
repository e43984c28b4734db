#pragma once

#include <array>

#include "testing/UdpReceiver.h"

namespace korvane {

/// A receiver of lamp values on this machine, for tests.
class Receiver {
 public:
  std::string target() const { return "sacn:1" + receiver_.place(); }
  /// The levels of each sACN packet that has come since the last call.
  std::vector<std::array<int, 3>> take() {
    constexpr std::size_t kFirstLevel = 126;  // behind the start code
    std::vector<std::array<int, 3>> frames;
    for (auto bytes = receiver_.packet(false); bytes.size() > kFirstLevel + 2;
         bytes = receiver_.packet(false))
      frames.push_back({bytes[kFirstLevel], bytes[kFirstLevel + 1], bytes[kFirstLevel + 2]});
    return frames;
  }

 private:
  UdpReceiver receiver_;
};

}  // namespace korvane
