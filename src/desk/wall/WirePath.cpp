#include "desk/wall/WirePath.h"

#include <algorithm>

namespace korvane {
namespace {

// The numbers 0 to count - 1, from the far end if wanted.
std::vector<int> steps(int count, bool back) {
  std::vector<int> all;
  for (int i = 0; i < count; ++i) all.push_back(i);
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
