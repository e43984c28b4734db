#include "platform/Raster.h"

#include <algorithm>
#include <array>
#include <cstdint>
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

Color* Raster::line(int y) { return pixels_.data() + index(0, y); }

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
  const auto count = static_cast<std::size_t>(right - left) + 1;
  for (int y = top; y <= bottom; ++y, line += width_) fillLine(line, count, color);
}

void Raster::drawRect(int x1, int y1, int x2, int y2, Color color) {
  fillRect(x1, y1, x2, y1, color);
  fillRect(x1, y2, x2, y2, color);
  fillRect(x1, y1, x1, y2, color);
  fillRect(x2, y1, x2, y2, color);
}

void Raster::drawEllipse(int x1, int y1, int x2, int y2, Color color, bool filled) {
  const int left = std::min(x1, x2);
  const int top = std::min(y1, y2);
  const double width = std::max(x1, x2) - left + 1.0;
  const double height = std::max(y1, y2) - top + 1.0;
  // Whether the centre of a pixel of the box lies in the ellipse. Whole numbers, so exact up to
  // boxes of some 9000 pixels.
  const auto inside = [=](int x, int y) {
    const double dx = (2.0 * x + 1 - width) * height;
    const double dy = (2.0 * y + 1 - height) * width;
    return dx * dx + dy * dy <= width * width * height * height;
  };
  for (int y = std::max(top, 0); y < height_ && y <= std::max(y1, y2); ++y) {
    for (int x = std::max(left, 0); x < width_ && x <= std::max(x1, x2); ++x) {
      const int u = x - left;
      const int v = y - top;
      const bool deep =
          inside(u - 1, v) && inside(u + 1, v) && inside(u, v - 1) && inside(u, v + 1);
      if (inside(u, v) && (filled || !deep)) setPixel(x, y, color);
    }
  }
}

void Raster::copy(int x, int y, int width, int height, const Raster& source, int sourceX,
                  int sourceY) {
  const int first = std::max({0, -x, -sourceX});
  const int last = std::min({width, width_ - x, source.width_ - sourceX});
  const int top = std::max({0, -y, -sourceY});
  const int bottom = std::min({height, height_ - y, source.height_ - sourceY});
  if (first >= last || top >= bottom) return;
  const auto bytes = static_cast<std::size_t>(last - first) * sizeof(Color);
  const bool upward = y > sourceY;  // the order in which a raster can be copied onto itself
  for (int i = top; i < bottom; ++i) {
    const int dy = upward ? bottom - 1 - (i - top) : i;
    std::memmove(pixels_.data() + index(x + first, y + dy),
                 source.line(sourceY + dy) + sourceX + first, bytes);
  }
}

void Raster::stretch(const Raster& source) {
  if (source.width_ == 0 || source.height_ == 0) return;
  for (int y = 0; y < height_; ++y) {
    const Color* from = source.line(static_cast<int>(std::int64_t{y} * source.height_ / height_));
    for (int x = 0; x < width_; ++x) setPixel(x, y, from[std::int64_t{x} * source.width_ / width_]);
  }
}

}  // namespace korvane
