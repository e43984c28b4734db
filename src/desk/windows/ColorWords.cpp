#include "desk/windows/ColorWords.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace korvane {
namespace {

constexpr double kMostOfComponent = 255;  // of a component
constexpr double kPercent = 100;          // of saturation and value
constexpr double kSector = 60;            // degrees from one pure or mixed colour to the next
constexpr int kCircle = 360;

std::string trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t#");
  const std::size_t last = text.find_last_not_of(" \t");
  return first == std::string_view::npos ? std::string()
                                         : std::string(text.substr(first, last + 1 - first));
}

int toWhole(double number) { return static_cast<int>(std::lround(number)); }

}  // namespace

std::optional<Color> parseHex(std::string_view text) {
  std::string digits = trimmed(text);
  if (digits.size() == 3)
    digits = {digits[0], digits[0], digits[1], digits[1], digits[2], digits[2]};
  unsigned number = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, number, 16);
  if (digits.size() != 6 || error != std::errc() || stop != end) return std::nullopt;
  return rgb(static_cast<int>(number >> 16), static_cast<int>((number >> 8) & 255),
             static_cast<int>(number & 255));
}

std::string hexText(Color color) {
  const Rgb parts = colorParts(color);
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "%02X%02X%02X", parts[0], parts[1], parts[2]);
  return text.data();
}

Hsv hsvOf(Color color, const Hsv& before) {
  const Rgb parts = colorParts(color);
  const double red = parts[0];
  const double green = parts[1];
  const double blue = parts[2];
  const double most = std::max({red, green, blue});
  const double span = most - std::min({red, green, blue});
  const int value = toWhole(most / kMostOfComponent * kPercent);
  if (most == 0) return {before.hue, before.saturation, 0};
  if (span == 0) return {before.hue, 0, value};
  const double sectors = most == red     ? (green - blue) / span
                         : most == green ? 2 + (blue - red) / span
                                         : 4 + (red - green) / span;
  return {(toWhole(sectors * kSector) + kCircle) % kCircle, toWhole(span / most * kPercent), value};
}

Color colorOf(const Hsv& hsv) {
  const double most = hsv.value / kPercent * kMostOfComponent;
  const double span = most * hsv.saturation / kPercent;
  // Each component stands at its most for two sectors around its own hue and falls in the next.
  const auto component = [&](int hue) {
    const int apart = std::abs(hsv.hue - hue) % kCircle;
    const double sectors = std::min(apart, kCircle - apart) / kSector;
    return toWhole(most - span * std::clamp(sectors - 1, 0.0, 1.0));
  };
  return rgb(component(0), component(kCircle / 3), component(2 * kCircle / 3));
}

}  // namespace korvane
