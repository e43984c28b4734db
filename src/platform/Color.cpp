#include "platform/Color.h"

namespace korvane {

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

}  // namespace korvane
