#include "windows/Logo.h"

#include <array>
#include <string_view>

namespace korvane {
namespace {

constexpr std::array<std::string_view, 8> kLamps = {
    "........",  //
    ".#...##.",  //
    ".#..##..",  //
    ".#.##...",  //
    ".####...",  //
    ".#..##..",  //
    ".#...##.",  //
    "........",
};
constexpr int kSide = 8;
constexpr int kPitch = 12;

// From red at the top left through violet to blue at the bottom right.
Color lampColor(int col, int row) {
  const int way = (col + row) * 255 / (2 * (kSide - 1));
  return rgb(255 - way, 40, way);
}

}  // namespace

void drawLogo(PictureBox& box) {
  for (int row = 0; row < kSide; ++row) {
    for (int col = 0; col < kSide; ++col) {
      const bool lit = kLamps[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)] == '#';
      const int x = col * kPitch + 1;
      const int y = row * kPitch + 1;
      box.fillRect(x, y, x + kPitch - 2, y + kPitch - 2,
                   lit ? lampColor(col, row) : rgb(28, 28, 34));
    }
  }
}

}  // namespace korvane
