#include "desk/show/Grand.h"

#include <algorithm>

namespace korvane {

void Grand::freeze(bool on) { frozen_ = on; }

// Rounded to the nearest level.
const Levels& Grand::leaving(const Levels& live) {
  if (!frozen_) {
    std::transform(live.begin(), live.end(), held_.begin(), [this](std::uint8_t level) {
      return static_cast<std::uint8_t>((level * master + kFull / 2) / kFull);
    });
  }
  if (!blackout && !dark) return held_;
  left_.fill(0);
  return left_;
}

}  // namespace korvane
