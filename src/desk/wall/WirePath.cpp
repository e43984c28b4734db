#include "desk/wall/WirePath.h"

#include <algorithm>
#include <numeric>

namespace korvane {
namespace {

// The numbers 0 to count - 1, from the far end if wanted.
std::vector<int> steps(int count, bool back) {
  std::vector<int> all(static_cast<std::size_t>(std::max(count, 0)));
  std::iota(all.begin(), all.end(), 0);
  if (back) std::reverse(all.begin(), all.end());
  return all;
}

}  // namespace

WireLines layOut(const WirePath& path, int cols, int rows) {
  const bool fromRight = path.start == WirePath::kTopRight || path.start == WirePath::kBottomRight;
  const bool fromBottom =
      path.start == WirePath::kBottomLeft || path.start == WirePath::kBottomRight;
  WireLines lines;
  bool back = path.columns ? fromBottom : fromRight;
  for (const int line : path.columns ? steps(cols, fromRight) : steps(rows, fromBottom)) {
    lines.emplace_back();
    for (const int place : steps(path.columns ? rows : cols, back))
      lines.back().push_back(path.columns ? LampAt{line, place} : LampAt{place, line});
    back = back != path.snake;
  }
  return lines;
}

}  // namespace korvane
