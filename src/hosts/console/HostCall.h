#pragma once

#include <cstdint>

namespace korvane {

/// A call that the plug-in made to the desk: `SetChannel`, or `UserInteraction`.
struct HostCall {
  static constexpr std::int32_t kUserInteraction = -1;

  std::int32_t channel;  ///< kUserInteraction for that call
  std::int32_t value;
};

}  // namespace korvane
