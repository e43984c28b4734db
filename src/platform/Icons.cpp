#include "platform/Icons.h"

#include <cmath>
#include <map>
#include <numbers>

namespace korvane {
namespace {

using Points = std::vector<std::pair<double, double>>;
using Parts = std::vector<IconPart>;

IconPart filled(Points points) { return {std::move(points), true, true}; }
IconPart outline(Points points) { return {std::move(points), false, true}; }
IconPart stroke(Points points) { return {std::move(points), false, false}; }

// Turns points about the centre, counter-clockwise, by eighths of a circle.
Points turned(Points points, int eighths) {
  const double angle = -eighths * std::numbers::pi / 4;
  for (auto& [x, y] : points) {
    const double dx = x - 0.5;
    const double dy = y - 0.5;
    x = 0.5 + dx * std::cos(angle) - dy * std::sin(angle);
    y = 0.5 + dx * std::sin(angle) + dy * std::cos(angle);
  }
  return points;
}

Points circle(double radius) {
  Points points;
  for (int i = 0; i < 32; ++i) {
    const double angle = i * std::numbers::pi / 16;
    points.emplace_back(0.5 + radius * std::cos(angle), 0.5 + radius * std::sin(angle));
  }
  return points;
}

// An arrow that points up, turned by eighths.
Parts arrow(int eighths) {
  return {filled(turned({{0.5, 0.1}, {0.8, 0.45}, {0.2, 0.45}}, eighths)),
          filled(turned({{0.42, 0.4}, {0.58, 0.4}, {0.58, 0.9}, {0.42, 0.9}}, eighths))};
}

// Two triangles that point at each other or away from each other, side by side, or turned by a
// quarter one above the other.
Parts pair(bool inward, int eighths) {
  const Points left = inward ? Points{{0.42, 0.5}, {0.1, 0.22}, {0.1, 0.78}}
                             : Points{{0.06, 0.5}, {0.38, 0.22}, {0.38, 0.78}};
  return {filled(turned(left, eighths)), filled(turned(turned(left, 4), eighths)),
          filled(turned({{0.47, 0.1}, {0.53, 0.1}, {0.53, 0.9}, {0.47, 0.9}}, eighths))};
}

Parts rings(bool inward) {
  Parts parts = {outline({{0.1, 0.1}, {0.9, 0.1}, {0.9, 0.9}, {0.1, 0.9}})};
  if (inward) {
    parts.push_back(filled({{0.38, 0.38}, {0.62, 0.38}, {0.62, 0.62}, {0.38, 0.62}}));
  } else {
    parts.push_back(outline({{0.26, 0.26}, {0.74, 0.26}, {0.74, 0.74}, {0.26, 0.74}}));
    parts.push_back(outline({{0.42, 0.42}, {0.58, 0.42}, {0.58, 0.58}, {0.42, 0.58}}));
  }
  return parts;
}

const std::map<Icon, Parts>& table() {
  static const std::map<Icon, Parts> icons = {
      {Icon::None, {outline(circle(0.32)), stroke({{0.28, 0.72}, {0.72, 0.28}})}},
      {Icon::Arrow1, arrow(0)},
      {Icon::Arrow2, arrow(1)},
      {Icon::Arrow3, arrow(2)},
      {Icon::Arrow4, arrow(3)},
      {Icon::Arrow5, arrow(4)},
      {Icon::Arrow6, arrow(5)},
      {Icon::Arrow7, arrow(6)},
      {Icon::Arrow8, arrow(7)},
      {Icon::Arrow9, pair(true, 0)},
      {Icon::Arrow10, pair(false, 0)},
      {Icon::Arrow11, pair(true, 2)},
      {Icon::Arrow12, pair(false, 2)},
      {Icon::RingsInward, rings(true)},
      {Icon::RingsOutward, rings(false)},
      {Icon::Add, {stroke({{0.5, 0.18}, {0.5, 0.82}}), stroke({{0.18, 0.5}, {0.82, 0.5}})}},
      {Icon::Remove, {stroke({{0.18, 0.5}, {0.82, 0.5}})}},
      {Icon::Up, {stroke({{0.2, 0.65}, {0.5, 0.35}, {0.8, 0.65}})}},
      {Icon::Down, {stroke({{0.2, 0.35}, {0.5, 0.65}, {0.8, 0.35}})}},
      {Icon::Copy,
       {outline({{0.15, 0.15}, {0.62, 0.15}, {0.62, 0.65}, {0.15, 0.65}}),
        filled({{0.38, 0.38}, {0.85, 0.38}, {0.85, 0.88}, {0.38, 0.88}})}},
      {Icon::Paste,
       {outline({{0.2, 0.2}, {0.8, 0.2}, {0.8, 0.9}, {0.2, 0.9}}),
        filled({{0.36, 0.1}, {0.64, 0.1}, {0.64, 0.28}, {0.36, 0.28}}),
        stroke({{0.36, 0.5}, {0.64, 0.5}}), stroke({{0.36, 0.68}, {0.64, 0.68}})}},
      {Icon::Save,
       {outline({{0.12, 0.12}, {0.7, 0.12}, {0.88, 0.3}, {0.88, 0.88}, {0.12, 0.88}}),
        filled({{0.32, 0.12}, {0.62, 0.12}, {0.62, 0.38}, {0.32, 0.38}}),
        filled({{0.28, 0.56}, {0.72, 0.56}, {0.72, 0.88}, {0.28, 0.88}})}},
      {Icon::Load,
       {stroke({{0.1, 0.84}, {0.1, 0.18}, {0.36, 0.18}, {0.45, 0.3}, {0.78, 0.3}, {0.78, 0.44}}),
        filled({{0.1, 0.86}, {0.27, 0.46}, {0.96, 0.46}, {0.79, 0.86}})}},
      {Icon::Help,
       {stroke({{0.3, 0.35},
                {0.33, 0.2},
                {0.5, 0.13},
                {0.67, 0.2},
                {0.7, 0.35},
                {0.5, 0.52},
                {0.5, 0.66}}),
        filled({{0.44, 0.78}, {0.56, 0.78}, {0.56, 0.9}, {0.44, 0.9}})}},
      {Icon::Close, {stroke({{0.22, 0.22}, {0.78, 0.78}}), stroke({{0.78, 0.22}, {0.22, 0.78}})}},
      {Icon::Point, {filled({{0.38, 0.38}, {0.62, 0.38}, {0.62, 0.62}, {0.38, 0.62}})}},
      {Icon::Line, {stroke({{0.15, 0.85}, {0.85, 0.15}})}},
      {Icon::FilledRectangle, {filled({{0.12, 0.22}, {0.88, 0.22}, {0.88, 0.78}, {0.12, 0.78}})}},
      {Icon::Rectangle, {outline({{0.12, 0.22}, {0.88, 0.22}, {0.88, 0.78}, {0.12, 0.78}})}},
      {Icon::FilledCircle, {filled(circle(0.38))}},
      {Icon::Circle, {outline(circle(0.38))}},
      {Icon::Replace,
       {outline({{0.1, 0.1}, {0.45, 0.1}, {0.45, 0.45}, {0.1, 0.45}}),
        filled({{0.55, 0.55}, {0.9, 0.55}, {0.9, 0.9}, {0.55, 0.9}}),
        stroke({{0.6, 0.2}, {0.8, 0.2}, {0.8, 0.42}}),
        stroke({{0.4, 0.8}, {0.2, 0.8}, {0.2, 0.58}})}},
  };
  return icons;
}

}  // namespace

const std::vector<IconPart>& iconParts(Icon icon) { return table().at(icon); }

Icon arrowIcon(int direction) {
  return static_cast<Icon>(static_cast<int>(Icon::None) + direction);
}

}  // namespace korvane
