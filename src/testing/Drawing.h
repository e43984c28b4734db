#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/Grid.h"
#include "platform/Raster.h"

namespace korvane {

inline constexpr Color kBlack = rgb(0, 0, 0);
inline constexpr Color kWhite = rgb(255, 255, 255);
inline constexpr Color kRed = rgb(255, 0, 0);
inline constexpr Color kGreen = rgb(0, 255, 0);
inline constexpr Color kBlue = rgb(0, 0, 255);

/// A small picture in text: one string a row, one letter a cell.
using Drawing = std::vector<std::string>;

/// What letters stand for. These are always there: . black, W white, R red, G green, B blue,
/// Y yellow, C cyan, M magenta, g the grey 180, h the grey 127.
using Letters = std::map<char, Color>;

/// Whatever has cells of colour: a frame, a painted picture, a raster or a strip.
class Picture {
 public:
  Picture(const Frame& frame);              // NOLINT(google-explicit-constructor): a mere view
  Picture(const Grid<Color>& grid);         // NOLINT(google-explicit-constructor)
  Picture(const Raster& raster);            // NOLINT(google-explicit-constructor)
  Picture(const std::vector<Rgb>& oneRow);  // NOLINT(google-explicit-constructor)
  Picture(int width, int height, std::vector<Color> cells);

  int width() const { return width_; }
  int height() const { return height_; }
  Color at(int x, int y) const;
  /// The part of it from (x, y) on.
  Picture cut(int x, int y, int width, int height) const;

 private:
  int width_;
  int height_;
  std::vector<Color> cells_;  // rows from the top
};

/// Fails unless the picture looks like the drawing. The failure shows both side by side and names
/// the first wrong cell. `more` adds letters or gives them another meaning.
void expectPicture(const Picture& picture, const Drawing& drawing, const Letters& more = {},
                   const char* file = __builtin_FILE(), int line = __builtin_LINE());

/// A frame that looks like the drawing.
Frame frameOf(const Drawing& drawing, const Letters& more = {});

}  // namespace korvane
