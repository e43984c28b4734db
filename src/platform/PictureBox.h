#pragma once

#include <functional>
#include <string>

#include "platform/Control.h"
#include "platform/Raster.h"

namespace korvane {

/// A drawing area that owns its pixels; a view only copies them to the screen.
class PictureBox : public Control {
 public:
  /// Grow: the view gives the box as many screen pixels as there is room. Fixed: the box keeps its
  /// size and the view enlarges its pixels.
  enum class Sizing { Grow, Fixed };
  enum class Mouse { Down, Move, Up, Click, DblClick };

  struct Size {
    int width;
    int height;
    Sizing sizing = Sizing::Grow;
  };

  PictureBox(std::string name, Size size, Look look = {}, Color backColor = 0)
      : Control(Kind::PictureBox, std::move(name), std::move(look)),
        sizing_(size.sizing),
        backColor_(backColor),
        raster_(size.width, size.height, backColor) {}

  const Raster& raster() const { return raster_; }
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
  /// The raster, to be drawn on; call touched() when it is done.
  Raster& canvas() { return raster_; }
  void touched() { invalidate(0, 0, width() - 1, height() - 1); }

  /// Pointer events in pixels of the box.
  void mouse(Mouse event, int x, int y);
  bool buttonHeld() const { return held_; }

  std::function<void(int x, int y)> onMouseDown, onMouseMove, onMouseUp;
  std::function<void()> onClick, onDblClick;
  std::function<void()> onResize;
  /// For the view: the pixels from the upper left to the lower right corner, both included, have
  /// changed. Corners may lie outside the box.
  std::function<void(int x1, int y1, int x2, int y2)> onPixels;

 private:
  void invalidate(int x1, int y1, int x2, int y2);

  Sizing sizing_;
  Color backColor_;
  Raster raster_;
  bool held_ = false;
};

}  // namespace korvane
