#include "platform/Color.h"

namespace korvane {

int colorPart(Color color, std::int32_t mask) {
  const auto bits = static_cast<std::uint32_t>(color);
  const Color plain =
      (bits >> 24) != 0 ? systemColor(static_cast<std::int32_t>(bits & 0xFFFFFF)) : color;
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

Rgb colorParts(Color color) {
  return {static_cast<std::uint8_t>(colorPart(color, kRedMask)),
          static_cast<std::uint8_t>(colorPart(color, kGreenMask)),
          static_cast<std::uint8_t>(colorPart(color, kBlueMask))};
}

}  // namespace korvane
