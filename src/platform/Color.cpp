#include "platform/Color.h"

#include <algorithm>
#include <cmath>

namespace korvane {
namespace {

// Relative luminance of a colour, 0 - 1.
double luminance(Color color) {
  const auto linear = [color](std::int32_t mask) {
    const double part = colorPart(color, mask) / 255.0;
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(kRedMask) + 0.7152 * linear(kGreenMask) + 0.0722 * linear(kBlueMask);
}

}  // namespace

Color plainColor(Color color) {
  const auto bits = static_cast<std::uint32_t>(color);
  return (bits >> 24) != 0 ? systemColor(static_cast<std::int32_t>(bits & 0xFFFFFF)) : color;
}

int colorPart(Color color, std::int32_t mask) {
  const Color plain = plainColor(color);
  switch (mask) {
    case kRedMask:
      return plain & 255;
    case kGreenMask:
      return (plain / 256) & 255;
    case kBlueMask:
      return (plain / 65536) & 255;
    default:
      return 0;
  }
}

double contrast(Color one, Color other) {
  const double a = luminance(one) + 0.05;
  const double b = luminance(other) + 0.05;
  return std::max(a, b) / std::min(a, b);
}

Color inkOn(Color background) {
  constexpr Color kWhite = rgb(255, 255, 255);
  return contrast(background, 0) >= contrast(background, kWhite) ? 0 : kWhite;
}

}  // namespace korvane
