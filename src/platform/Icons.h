#pragma once

#include <utility>
#include <vector>

namespace korvane {

/// The pictures of the picture buttons. Arrow1 to Arrow12 are the directions of the effects:
/// counter-clockwise from up, then 9 and 10 inward and outward (columns), 11 and 12 (rows).
enum class Icon {
  None,
  Arrow1,
  Arrow2,
  Arrow3,
  Arrow4,
  Arrow5,
  Arrow6,
  Arrow7,
  Arrow8,
  Arrow9,
  Arrow10,
  Arrow11,
  Arrow12,
  RingsInward,
  RingsOutward,
  Add,
  Remove,
  Up,
  Down,
  Copy,
  Paste,
  Save,
  Load,
  Help,
  Close,
  Point,
  Line,
  FilledRectangle,
  Rectangle,
  FilledCircle,
  Circle,
  Replace
};

/// A polygon or line in a unit square, (0, 0) at the top left, so that it is sharp at any scale.
struct IconPart {
  std::vector<std::pair<double, double>> points;
  bool filled = false;  ///< else drawn as a line of a twelfth of the square
  bool closed = false;  ///< the last point is joined to the first
};

/// The parts of a picture, in drawing order.
const std::vector<IconPart>& iconParts(Icon icon);

/// The icon of a direction, 0 (none) to 12.
Icon arrowIcon(int direction);

}  // namespace korvane
