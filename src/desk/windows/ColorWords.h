#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Color.h"

namespace korvane {

/// A colour as a person types it: six hexadecimal digits, or three that stand for themselves twice,
/// with "#" before them or without. Nothing for any other text.
std::optional<Color> parseHex(std::string_view text);
/// As in "FF8000".
std::string hexText(Color color);

/// A colour by its hue, 0 - 359 degrees, its saturation and its value, each 0 - 100 percent.
struct Hsv {
  int hue = 0;
  int saturation = 0;
  int value = 0;
};

/// The nearest one; a grey has no hue and black has no saturation, and they stay as in `before`.
Hsv hsvOf(Color color, const Hsv& before);
Color colorOf(const Hsv& hsv);

}  // namespace korvane
