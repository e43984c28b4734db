#include "testing/Drawing.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdio>
#include <optional>
#include <stdexcept>
#include <utility>

namespace korvane {
namespace {

const Letters kLetters = {{'.', rgb(0, 0, 0)},       {'W', rgb(255, 255, 255)},
                          {'R', rgb(255, 0, 0)},     {'G', rgb(0, 255, 0)},
                          {'B', rgb(0, 0, 255)},     {'Y', rgb(255, 255, 0)},
                          {'C', rgb(0, 255, 255)},   {'M', rgb(255, 0, 255)},
                          {'g', rgb(180, 180, 180)}, {'h', rgb(127, 127, 127)}};

Letters lettersWith(Letters more) {
  more.insert(kLetters.begin(), kLetters.end());
  return more;
}

std::string hex(Color color) {
  char text[16];
  std::snprintf(text, sizeof text, "%02X%02X%02X", colorPart(color, kRedMask),
                colorPart(color, kGreenMask), colorPart(color, kBlueMask));
  return text;
}

// The letter of a colour, ? if it has none.
char letterOf(Color color, const Letters& letters) {
  for (const auto& [letter, meaning] : letters) {
    if (meaning == color) return letter;
  }
  return '?';
}

Color colorOf(char letter, const Letters& letters) {
  const auto found = letters.find(letter);
  if (found == letters.end()) {
    throw std::invalid_argument(std::string("no colour is known for the letter ") + letter);
  }
  return found->second;
}

Picture pictureOf(const Drawing& drawing, const Letters& letters) {
  const std::size_t width = drawing.empty() ? 0 : drawing.front().size();
  std::vector<Color> cells;
  for (const std::string& row : drawing) {
    if (row.size() != width) throw std::invalid_argument("the drawing's rows differ in length");
    for (const char letter : row) cells.push_back(colorOf(letter, letters));
  }
  return {static_cast<int>(width), static_cast<int>(drawing.size()), std::move(cells)};
}

std::string rowText(const Picture& picture, int y, const Letters& letters) {
  std::string text;
  for (int x = 0; x < picture.width(); ++x) text += letterOf(picture.at(x, y), letters);
  return text;
}

std::string sideBySide(const Picture& picture, const Drawing& drawing, const Letters& letters) {
  std::string text = "is, and should be:\n";
  for (int y = 0; y < picture.height(); ++y) {
    text +=
        "  " + rowText(picture, y, letters) + "   " + drawing[static_cast<std::size_t>(y)] + "\n";
  }
  return text;
}

using Cell = std::pair<int, int>;

std::optional<Cell> firstWrong(const Picture& picture, const Picture& wanted) {
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (picture.at(x, y) != wanted.at(x, y)) return Cell(x, y);
    }
  }
  return std::nullopt;
}

std::string sizeText(const Picture& picture) {
  return std::to_string(picture.width()) + " x " + std::to_string(picture.height());
}

// Nothing if the picture is as wanted.
std::string complaint(const Picture& picture, const Drawing& drawing, const Letters& letters) {
  const Picture wanted = pictureOf(drawing, letters);
  if (sizeText(picture) != sizeText(wanted)) {
    std::string text = "is " + sizeText(picture) + ", should be " + sizeText(wanted) + ":\n";
    for (int y = 0; y < picture.height(); ++y) text += "  " + rowText(picture, y, letters) + "\n";
    return text;
  }
  const std::optional<Cell> wrong = firstWrong(picture, wanted);
  if (!wrong) return {};
  const auto [x, y] = *wrong;
  return sideBySide(picture, drawing, letters) + "first wrong cell: column " + std::to_string(x) +
         ", row " + std::to_string(y) + " is " + hex(picture.at(x, y)) + ", should be " +
         hex(wanted.at(x, y));
}

}  // namespace

Picture::Picture(int width, int height, std::vector<Color> cells)
    : width_(width), height_(height), cells_(std::move(cells)) {}

Picture::Picture(const Frame& frame) : Picture(frame.cols(), frame.rows(), {}) {
  for (int row = 0; row < height_; ++row) {
    for (int col = 0; col < width_; ++col) cells_.push_back(rgb(frame.at(col, row)));
  }
}

Picture::Picture(const Grid<Color>& grid) : Picture(grid.cols(), grid.rows(), {}) {
  for (int row = 0; row < height_; ++row) {
    for (int col = 0; col < width_; ++col) cells_.push_back(grid.at(col, row));
  }
}

Picture::Picture(const Raster& raster)
    : Picture(raster.width(), raster.height(),
              {raster.data(), raster.data() + raster.height() * std::ptrdiff_t{raster.width()}}) {}

Picture::Picture(const std::vector<Rgb>& oneRow) : Picture(static_cast<int>(oneRow.size()), 1, {}) {
  for (const Rgb& cell : oneRow) cells_.push_back(rgb(cell));
}

Color Picture::at(int x, int y) const {
  return cells_.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                   static_cast<std::size_t>(x));
}

Picture Picture::cut(int x, int y, int width, int height) const {
  std::vector<Color> cells;
  for (int dy = 0; dy < height; ++dy) {
    for (int dx = 0; dx < width; ++dx) cells.push_back(at(x + dx, y + dy));
  }
  return {width, height, std::move(cells)};
}

void expectPicture(const Picture& picture, const Drawing& drawing, const Letters& more,
                   const char* file, int line) {
  const std::string wrong = complaint(picture, drawing, lettersWith(more));
  if (!wrong.empty()) ADD_FAILURE_AT(file, line) << "The picture " << wrong;
}

Frame frameOf(const Drawing& drawing, const Letters& more) {
  const Picture picture = pictureOf(drawing, lettersWith(more));
  Frame frame;
  frame.redim(picture.width(), picture.height());
  for (int row = 0; row < picture.height(); ++row) {
    for (int col = 0; col < picture.width(); ++col)
      frame.at(col, row) = colorParts(picture.at(col, row));
  }
  return frame;
}

}  // namespace korvane
