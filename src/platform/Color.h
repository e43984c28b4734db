#pragma once

#include <array>
#include <cstdint>

namespace korvane {

/// A colour value, 0x00BBGGRR, red lowest. A non-zero top byte makes it a reference to a system
/// colour.
using Color = std::int32_t;

/// The components red, green, blue of one lamp.
using Rgb = std::array<std::uint8_t, 3>;

inline constexpr std::int32_t kRedMask = 255;
inline constexpr std::int32_t kGreenMask = 65280;
inline constexpr std::int32_t kBlueMask = 16711680;

/// Colour value of three components, each 0 - 255.
constexpr Color rgb(int red, int green, int blue) { return red + 256 * green + 65536 * blue; }
constexpr Color rgb(const Rgb& cell) { return rgb(cell[0], cell[1], cell[2]); }

/// The platform's colour for a system colour number, 0 for a number that it lacks.
Color systemColor(std::int32_t number);

/// The component of a colour that the mask selects, 0 - 255; 0 for any other mask. System
/// colours are resolved first. The only way in which a colour is taken apart.
int colorPart(Color color, std::int32_t mask);

/// The colour itself, or the one that it refers to.
Color plainColor(Color color);

/// All three components, each as by colorPart.
inline Rgb colorParts(Color color) {
  const Color plain = (color & ~0xFFFFFF) == 0 ? color : plainColor(color);
  return {static_cast<std::uint8_t>(plain & 255), static_cast<std::uint8_t>((plain >> 8) & 255),
          static_cast<std::uint8_t>((plain >> 16) & 255)};
}

/// Contrast of two colours, 1 (none) - 21, after WCAG 2.1, "contrast ratio".
double contrast(Color one, Color other);

/// Black or white, whichever is read better on a background.
Color inkOn(Color background);

}  // namespace korvane
