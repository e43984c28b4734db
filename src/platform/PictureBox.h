#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Control.h"
#include "platform/Gate.h"
#include "platform/Squares.h"

namespace korvane {

/// A drawing area that owns its pixels; a view only copies them to the screen.
class PictureBox : public Control {
 public:
  /// Square: the view gives the box the largest square of screen pixels that there is room for.
  /// Grow: all pixels that there is room for. Fixed: the box keeps its size and the view enlarges
  /// its pixels.
  enum class Sizing { Square, Grow, Fixed };
  enum class Mouse { Down, Move, Up, Click, DblClick };

  struct Size {
    int width;
    int height;
    Sizing sizing = Sizing::Square;
  };

  /// A line of one pixel between two points, both included.
  struct Line {
    int x1, y1, x2, y2;
    Color color;

    bool operator==(const Line&) const = default;
  };

  PictureBox(std::string name, Size size, Look look = {}, Color backColor = 0)
      : Control(Kind::PictureBox, std::move(name), std::move(look)),
        sizing_(size.sizing),
        backColor_(backColor),
        raster_(size.width, size.height, backColor) {}

  const Raster& raster() const {
    settle();
    return raster_;
  }
  int width() const { return raster_.width(); }
  int height() const { return raster_.height(); }
  Sizing sizing() const { return sizing_; }
  Color backColor() const { return backColor_; }

  /// Gives the drawing area a size in pixels, cleared; onResize follows if it changed.
  void resize(int width, int height);
  /// Replaces the picture, size and all. No event.
  void setRaster(Raster raster);
  void clear();
  void fillRect(int x1, int y1, int x2, int y2, Color color);
  void drawRect(int x1, int y1, int x2, int y2, Color color);
  void setPixel(int x, int y, Color color) { fillRect(x, y, x, y, color); }
  /// Draws squares, but not before somebody looks at the pixels: a grid that is drawn forty times a
  /// second is looked at twenty times, or by nobody.
  void draw(Squares squares);
  /// Draws one of them anew; any other square is drawn as fillRect() does.
  void draw(std::size_t index, int toRight, int toBottom, const Squares::Square& square) {
    if (blank_) return;
    const auto [x, y, color] = square;
    if (!isSquare(index, toRight, toBottom, square)) {
      fillRect(x, y, x + toRight, y + toBottom, color);
      return;
    }
    const bool other = std::exchange(squares_.list[index].color, color) != color;
    if (other) settled_ = false;
    if (onSquares || onPixels) tellSquares(other, x, y, x + toRight, y + toBottom);
  }
  /// What draw() drew last; none if something else has been drawn since.
  const Squares& squares() const { return squares_; }
  /// The raster, to be drawn on; call touched() when it is done.
  Raster& canvas() {
    endSquares();
    return raster_;
  }
  void touched() { invalidate(0, 0, width() - 1, height() - 1); }

  /// Nobody will look: squares are no longer painted, the frame goes on without its preview.
  void leaveBlank() { blank_ = true; }
  bool blank() const { return blank_; }

  /// Lines that the view draws over the pixels; the raster does not hold them.
  const std::vector<Line>& overlay() const { return overlay_; }
  void setOverlay(std::vector<Line> lines);

  /// One pointer event, in pixels of the box.
  void mouse(Mouse event, int x, int y);
  bool buttonHeld() const { return held_; }

  /// What a person does with the pointer, as the system tells it, and what comes of it: each event
  /// passes the gate by itself. The left button goes down; a second time in a row, of which no
  /// click comes; the pointer moves, with the button `held` or not; the button comes up, `inside`
  /// the picture or beside it; the pointer leaves.
  void press(int x, int y, const Gate& gate);
  void twice(int x, int y, const Gate& gate);
  void move(int x, int y, bool held, const Gate& gate);
  void release(int x, int y, bool inside, const Gate& gate);
  void leave(const Gate& gate);

  std::function<void(int x, int y)> onMouseDown, onMouseMove, onMouseUp;
  std::function<void()> onClick, onDblClick;
  std::function<void()> onResize;
  /// For the view: the pixels from the upper left to the lower right corner, both included, have
  /// changed. Corners may lie outside the box.
  std::function<void(int x1, int y1, int x2, int y2)> onPixels;
  /// For a view that draws squares() on a copy of the pixels itself: those have changed within
  /// these pixels. Without it, onPixels tells.
  std::function<void(int x1, int y1, int x2, int y2)> onSquares;

 private:
  void settle() const;
  void endSquares();
  // Squares that lie over each other, as those of a pixel do, are none that can be drawn by
  // themselves.
  bool isSquare(std::size_t index, int toRight, int toBottom, const Squares::Square& square) const {
    return toRight >= 0 && toBottom >= 0 && toRight == squares_.toRight &&
           toBottom == squares_.toBottom && index < squares_.list.size() &&
           squares_.list[index].x == square.x && squares_.list[index].y == square.y;
  }
  void tellSquares(bool others, int x1, int y1, int x2, int y2);
  void invalidate(int x1, int y1, int x2, int y2);
  void invalidateOverlay();

  Sizing sizing_;
  Color backColor_;
  mutable Raster raster_;
  Squares squares_;
  mutable bool settled_ = true;  // the raster has them
  std::vector<Line> overlay_;
  bool blank_ = false;
  bool held_ = false;
  bool clicks_ = false;  // the release of the button will be a click
};

}  // namespace korvane
