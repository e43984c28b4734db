#include <cstddef>

#include "platform/Color.h"

namespace korvane {
namespace {

// The classic system colours in the order of their numbers: scroll bar, desktop, active and
// inactive caption, menu, window, frame, menu text, window text, caption text, active and inactive
// border, work space, highlight and its text, button face, shadow, grey text, button text,
// inactive caption text, button highlight, dark shadow, light, tip text, tip background.
constexpr std::array<Color, 25> kClassic = {
    rgb(192, 192, 192), rgb(0, 128, 128),   rgb(0, 0, 128),     rgb(128, 128, 128),
    rgb(192, 192, 192), rgb(255, 255, 255), rgb(0, 0, 0),       rgb(0, 0, 0),
    rgb(0, 0, 0),       rgb(255, 255, 255), rgb(192, 192, 192), rgb(192, 192, 192),
    rgb(128, 128, 128), rgb(0, 0, 128),     rgb(255, 255, 255), rgb(192, 192, 192),
    rgb(128, 128, 128), rgb(128, 128, 128), rgb(0, 0, 0),       rgb(192, 192, 192),
    rgb(255, 255, 255), rgb(0, 0, 0),       rgb(223, 223, 223), rgb(0, 0, 0),
    rgb(255, 255, 225)};

}  // namespace

Color systemColor(std::int32_t number) {
  const auto index = static_cast<std::size_t>(number);
  return index < kClassic.size() ? kClassic[index] : 0;
}

}  // namespace korvane
