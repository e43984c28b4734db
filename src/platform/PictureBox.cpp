#include "platform/PictureBox.h"

#include <algorithm>
#include <utility>

namespace korvane {

void PictureBox::resize(int width, int height) {
  if (width == raster_.width() && height == raster_.height()) return;
  squares_.list.clear();
  raster_ = Raster(width, height, backColor_);
  shown();
  run(onResize);
}

void PictureBox::setRaster(Raster raster) {
  squares_.list.clear();
  raster_ = std::move(raster);
  shown();
  touched();
}

void PictureBox::clear() {
  squares_.list.clear();
  raster_.fill(backColor_);
  touched();
}

void PictureBox::fillRect(int x1, int y1, int x2, int y2, Color color) {
  if (blank_) return;
  endSquares();
  if (!onPixels) return raster_.fillRect(x1, y1, x2, y2, color);  // nobody to tell
  raster_.fillRect(x1, y1, x2, y2, color);
  invalidate(x1, y1, x2, y2);
}

void PictureBox::drawRect(int x1, int y1, int x2, int y2, Color color) {
  endSquares();
  raster_.drawRect(x1, y1, x2, y2, color);
  invalidate(x1, y1, x2, y2);
}

void PictureBox::draw(Squares squares) {
  if (blank_) return;
  if (!squares.cover(squares_)) endSquares();
  const bool others = squares != squares_;
  if (others) {
    squares_ = std::move(squares);
    settled_ = false;
  }
  tellSquares(others, 0, 0, width() - 1, height() - 1);
}

// A view that draws squares itself need not hear of those that stay as they are.
void PictureBox::tellSquares(bool others, int x1, int y1, int x2, int y2) {
  if (!onSquares) {
    invalidate(x1, y1, x2, y2);
  } else if (others) {
    onSquares(x1, y1, x2, y2);
  }
}

void PictureBox::settle() const {
  if (settled_) return;
  drawSquares(raster_, squares_, [](Color color) { return color; });
  settled_ = true;
}

// What is drawn now lies over the squares: whoever has not seen those looks at the pixels.
void PictureBox::endSquares() {
  if (squares_.list.empty()) return;
  settle();
  squares_.list.clear();
  if (onSquares) touched();
}

void PictureBox::invalidate(int x1, int y1, int x2, int y2) {
  if (!onPixels) return;
  onPixels(std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2));
}

void PictureBox::invalidateOverlay() {
  for (const Line& line : overlay_) invalidate(line.x1, line.y1, line.x2, line.y2);
}

void PictureBox::setOverlay(std::vector<Line> lines) {
  if (lines == overlay_) return;
  invalidateOverlay();
  overlay_ = std::move(lines);
  invalidateOverlay();
}

void PictureBox::press(int x, int y, const Gate& gate) {
  clicks_ = true;
  gate([&] { mouse(Mouse::Down, x, y); });
}

void PictureBox::twice(int x, int y, const Gate& gate) {
  clicks_ = false;
  gate([&] { mouse(Mouse::Down, x, y); });
  gate([&] { mouse(Mouse::DblClick, x, y); });
}

// A window that opens under the held button can take the release away: it is made up for here.
void PictureBox::move(int x, int y, bool held, const Gate& gate) {
  if (held_ && !held) gate([&] { mouse(Mouse::Up, x, y); });
  gate([&] { mouse(Mouse::Move, x, y); });
}

void PictureBox::release(int x, int y, bool inside, const Gate& gate) {
  const bool clicked = std::exchange(clicks_, false) && inside;
  gate([&] { mouse(Mouse::Up, x, y); });
  if (clicked) gate([&] { mouse(Mouse::Click, x, y); });
}

// A box that follows the pointer learns that it has gone.
void PictureBox::leave(const Gate& gate) {
  if (!held_) gate([&] { mouse(Mouse::Move, -1, -1); });
}

void PictureBox::mouse(Mouse event, int x, int y) {
  switch (event) {
    case Mouse::Down:
      held_ = true;
      return run(onMouseDown, x, y);
    case Mouse::Move:
      return run(onMouseMove, x, y);
    case Mouse::Up:
      held_ = false;
      return run(onMouseUp, x, y);
    case Mouse::Click:
      return run(onClick);
    case Mouse::DblClick:
      return run(onDblClick);
  }
}

}  // namespace korvane
