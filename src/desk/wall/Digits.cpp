#include "desk/wall/Digits.h"

#include <array>
#include <string>

namespace korvane {
namespace {

constexpr int kColumns = 3;
constexpr int kRows = 5;

// Rows from the top, the left dot in bit 2. The ticker's digits are a dot wider, so four of them
// find no room in a lamp of a large wall.
constexpr std::array<std::array<std::uint8_t, kRows>, 10> kDigits = {{{7, 5, 5, 5, 7},
                                                                      {2, 6, 2, 2, 7},
                                                                      {7, 1, 7, 4, 7},
                                                                      {7, 1, 3, 1, 7},
                                                                      {5, 5, 7, 1, 1},
                                                                      {7, 4, 7, 1, 7},
                                                                      {7, 4, 7, 5, 7},
                                                                      {7, 1, 1, 2, 2},
                                                                      {7, 5, 7, 5, 7},
                                                                      {7, 5, 7, 1, 7}}};

void drawDigit(Raster& picture, int x, int y, std::size_t digit, int dot, Color color) {
  for (int row = 0; row < kRows; ++row) {
    for (int column = 0; column < kColumns; ++column) {
      if ((kDigits[digit][static_cast<std::size_t>(row)] >> (kColumns - 1 - column) & 1) == 0)
        continue;
      const int left = x + column * dot;
      const int top = y + row * dot;
      picture.fillRect(left, top, left + dot - 1, top + dot - 1, color);
    }
  }
}

}  // namespace

int widthOfNumber(int number, int dot) {
  return (static_cast<int>(std::to_string(number).size()) * (kColumns + 1) - 1) * dot;
}

void drawNumber(Raster& picture, int x, int y, int number, int dot, Color color) {
  for (const char digit : std::to_string(number)) {
    drawDigit(picture, x, y, static_cast<std::size_t>(digit - '0'), dot, color);
    x += (kColumns + 1) * dot;
  }
}

}  // namespace korvane
