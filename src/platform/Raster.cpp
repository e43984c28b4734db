#include "platform/Raster.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace korvane {
namespace {

// Most lines are a few pixels of a preview's square: blocks of four, the last one overlapping.
void fillLine(Color* line, std::size_t count, Color color) {
  const std::array<Color, 4> block = {color, color, color, color};
  if (count < block.size()) {
    for (std::size_t i = 0; i < count; ++i) line[i] = color;
    return;
  }
  Color* last = line + count - block.size();
  for (; line < last; line += block.size()) std::memcpy(line, block.data(), sizeof block);
  std::memcpy(last, block.data(), sizeof block);
}

}  // namespace

Raster::Raster(int width, int height, Color color)
    : width_(std::max(width, 0)),
      height_(std::max(height, 0)),
      pixels_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_), color) {}

std::size_t Raster::index(int x, int y) const {
  return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
         static_cast<std::size_t>(x);
}

const Color* Raster::line(int y) const { return pixels_.data() + index(0, y); }

Color Raster::pixel(int x, int y) const {
  if (x < 0 || y < 0 || x >= width_ || y >= height_) return -1;
  return pixels_[index(x, y)];
}

void Raster::setPixel(int x, int y, Color color) {
  if (x < 0 || y < 0 || x >= width_ || y >= height_) return;
  pixels_[index(x, y)] = color;
}

void Raster::fill(Color color) { std::fill(pixels_.begin(), pixels_.end(), color); }

void Raster::fillRect(int x1, int y1, int x2, int y2, Color color) {
  const int left = std::max(std::min(x1, x2), 0);
  const int right = std::min(std::max(x1, x2), width_ - 1);
  const int top = std::max(std::min(y1, y2), 0);
  const int bottom = std::min(std::max(y1, y2), height_ - 1);
  if (left > right || top > bottom) return;
  Color* line = pixels_.data() + index(left, top);
  const auto count = static_cast<std::size_t>(right - left + 1);
  for (int y = top; y <= bottom; ++y, line += width_) fillLine(line, count, color);
}

void Raster::drawRect(int x1, int y1, int x2, int y2, Color color) {
  fillRect(x1, y1, x2, y1, color);
  fillRect(x1, y2, x2, y2, color);
  fillRect(x1, y1, x1, y2, color);
  fillRect(x2, y1, x2, y2, color);
}

void Raster::copy(int x, int y, int width, int height, const Raster& source, int sourceX,
                  int sourceY) {
  const Raster unchanged = &source == this ? source : Raster();
  const Raster& from = &source == this ? unchanged : source;
  for (int dy = 0; dy < height; ++dy) {
    for (int dx = 0; dx < width; ++dx) {
      const int fromX = sourceX + dx;
      const int fromY = sourceY + dy;
      if (fromX < 0 || fromY < 0 || fromX >= from.width_ || fromY >= from.height_) continue;
      setPixel(x + dx, y + dy, from.pixels_[from.index(fromX, fromY)]);
    }
  }
}

}  // namespace korvane
