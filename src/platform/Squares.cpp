#include "platform/Squares.h"

#include <algorithm>

namespace korvane {

bool Squares::cover(const Squares& others) const {
  const auto samePlace = [](const Square& a, const Square& b) { return a.x == b.x && a.y == b.y; };
  return toRight == others.toRight && toBottom == others.toBottom &&
         list.size() >= others.list.size() &&
         std::equal(others.list.begin(), others.list.end(), list.begin(), samePlace);
}

}  // namespace korvane
