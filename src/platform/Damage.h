#pragma once

#include <algorithm>
#include <limits>
#include <utility>

namespace korvane {

/// What has changed of a picture since a view painted it last, as the smallest rectangle around it:
/// thousands of cells that change in one pass are painted once.
class Damage {
 public:
  /// Pixels from the upper left to the lower right corner, both included.
  struct Area {
    int x1, y1, x2, y2;

    int width() const { return x2 - x1 + 1; }
    int height() const { return y2 - y1 + 1; }
    bool empty() const { return x1 > x2 || y1 > y2; }
    bool operator==(const Area&) const = default;
  };

  /// Takes a changed rectangle in, upper left corner first. True for the first one since the last
  /// take(): the time to ask for painting.
  bool add(int x1, int y1, int x2, int y2) {
    const bool first = !waiting_;
    area_ = {std::min(area_.x1, x1), std::min(area_.y1, y1), std::max(area_.x2, x2),
             std::max(area_.y2, y2)};
    waiting_ = true;
    return first;
  }

  /// The part of it that lies in a picture of this size, perhaps empty. Gathering starts anew.
  Area take(int width, int height) {
    waiting_ = false;
    const Area all = std::exchange(area_, kNone);
    return {std::max(all.x1, 0), std::max(all.y1, 0), std::min(all.x2, width - 1),
            std::min(all.y2, height - 1)};
  }

 private:
  static constexpr int kFar = std::numeric_limits<int>::max();
  static constexpr Area kNone = {kFar, kFar, -kFar, -kFar};

  Area area_ = kNone;
  bool waiting_ = false;
};

}  // namespace korvane
