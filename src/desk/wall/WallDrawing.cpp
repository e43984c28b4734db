#include "desk/wall/WallDrawing.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "desk/wall/Digits.h"

namespace korvane {
namespace {

constexpr Color kGround = rgb(32, 34, 38);
constexpr Color kDark = rgb(110, 110, 110);  // a lamp that gets no light
constexpr Color kCross = rgb(60, 60, 60);
constexpr Color kEdge = rgb(60, 62, 66);
constexpr Color kWire = rgb(20, 60, 140);
constexpr Color kWireOfUnlit = rgb(120, 150, 210);
constexpr Color kShared = rgb(220, 20, 30);
constexpr Color kInk = rgb(0, 0, 0);
constexpr Color kPaper = rgb(255, 255, 255);
constexpr Color kUnlit = rgb(70, 72, 78);  // all others while some are lit
constexpr int kLargestDot = 3;
constexpr int kLargestBegin = 8;  // radius in pixels
constexpr int kLeastWithThickFrame = 16;
constexpr int kLeastWithEdges = 5;  // pixels of a lamp's square

// One tone a universe; neighbours in the list stand apart.
constexpr std::array<Color, kWallUniverses> kTones = {
    rgb(170, 215, 255), rgb(255, 214, 165), rgb(180, 235, 180), rgb(255, 190, 200),
    rgb(215, 200, 255), rgb(250, 245, 160), rgb(165, 235, 225), rgb(245, 200, 240),
    rgb(205, 220, 190), rgb(255, 200, 150), rgb(190, 205, 235), rgb(225, 245, 190),
    rgb(235, 205, 190), rgb(180, 225, 245), rgb(240, 225, 200), rgb(215, 235, 235)};

struct Point {
  int x, y;
};

// A line of pixels between two points, both included; with `every` above 1 only each nth of them.
void drawLine(Raster& picture, Point from, Point to, Color color, int every = 1) {
  const int steps = std::max(std::abs(to.x - from.x), std::abs(to.y - from.y));
  for (int i = 0; i <= steps; i += every) {
    const int x = steps == 0 ? from.x : from.x + (to.x - from.x) * i / steps;
    const int y = steps == 0 ? from.y : from.y + (to.y - from.y) * i / steps;
    picture.setPixel(x, y, color);
  }
}

bool neighbours(const LampAt& a, const LampAt& b) {
  return std::abs(a.col - b.col) + std::abs(a.row - b.row) == 1;
}

class Drawing {
 public:
  Drawing(Raster& picture, const Patch& patch, const LitLamps& lit)
      : picture_(picture), patch_(patch), lit_(lit), at_(patch, picture.width(), picture.height()) {
    lights_.redim(std::max(0, patch.cols()), std::max(0, patch.rows()));
    for (const LampAt& lamp : lit.lamps) lights_.at(lamp.col, lamp.row) = true;
    const int last = static_cast<int>(patch.wire().size());
    while (dot_ < kLargestDot && widthOfNumber(last, dot_ + 1) <= at_.cell - 4 &&
           heightOfNumber(dot_ + 1) * (dot_ == 0 ? 2 : 3) <= at_.cell)
      ++dot_;
  }

  void draw() {
    picture_.fill(kGround);
    if (at_.cell == 0) return;
    for (int col = 0; col < patch_.cols(); ++col) {
      for (int row = 0; row < patch_.rows(); ++row) drawSquare({col, row}, tone({col, row}));
    }
    for (const LampAt& lamp : patch_.beyond()) cross(lamp);
    for (const LampAt& lamp : patch_.withoutChannels()) cross(lamp);
    for (const LampAt& lamp : lit_.lamps) drawSquare(lamp, lit_.color);
    drawWire();
    if (dot_ > 0) {
      for (std::size_t i = 0; i < patch_.wire().size(); ++i) number(i);
    } else {
      drawFirstNumbers();
    }
    for (const LampAt& lamp : patch_.sharing()) frame(lamp, kShared, 1);
    for (const LampAt& lamp : lit_.lamps)
      frame(lamp, kPaper, at_.cell < kLeastWithThickFrame ? 1 : 2);
  }

 private:
  Color tone(const LampAt& lamp) const {
    if (!lit_.lamps.empty()) return kUnlit;
    const auto first = firstChannel(lamp);
    return first ? kTones[static_cast<std::size_t>(first->universe) - 1] : kDark;
  }
  std::optional<WallChannel> firstChannel(const LampAt& lamp) const {
    std::optional<WallChannel> first;
    for (const std::int32_t code : patch_.codes(lamp)) {
      const auto channel = wallChannel(code);
      if (channel && (!first || *channel < *first)) first = channel;
    }
    return first;
  }
  void drawSquare(const LampAt& lamp, Color color) {
    const int edge = at_.cell < kLeastWithEdges ? 1 : 2;
    picture_.fillRect(at_.x(lamp), at_.y(lamp), at_.x(lamp) + at_.cell - edge,
                      at_.y(lamp) + at_.cell - edge, color);
    if (edge == 2) frame(lamp, kEdge, 1);
  }
  void frame(const LampAt& lamp, Color color, int thick) {
    for (int i = 0; i < std::min(thick, at_.cell / 2); ++i) {
      picture_.drawRect(at_.x(lamp) + i, at_.y(lamp) + i, at_.x(lamp) + at_.cell - 1 - i,
                        at_.y(lamp) + at_.cell - 1 - i, color);
    }
  }
  void cross(const LampAt& lamp) {
    const int left = at_.x(lamp) + 1;
    const int top = at_.y(lamp) + 1;
    const int side = at_.cell - 3;
    drawLine(picture_, {left, top}, {left + side, top + side}, kCross);
    drawLine(picture_, {left + side, top}, {left, top + side}, kCross);
  }
  // The wire runs below the numbers, or through the middle where there are none.
  Point wireAt(const LampAt& lamp) const {
    const int down = dot_ > 0 ? at_.cell * 3 / 4 : at_.cell / 2;
    return {at_.x(lamp) + at_.cell / 2, at_.y(lamp) + down};
  }
  void drawWire() {
    const std::vector<LampAt>& wire = patch_.wire();
    const Color color = lit_.lamps.empty() ? kWire : kWireOfUnlit;
    for (std::size_t i = 1; i < wire.size(); ++i) {
      const bool jump = !neighbours(wire[i - 1], wire[i]);
      drawLine(picture_, wireAt(wire[i - 1]), wireAt(wire[i]), color, jump ? 4 : 1);
    }
    if (wire.empty()) return;
    const Point begin = wireAt(wire.front());
    const int radius = std::clamp(at_.cell / 8, 1, kLargestBegin);
    picture_.drawEllipse(begin.x - radius, begin.y - radius, begin.x + radius, begin.y + radius,
                         color, true);
  }
  void number(std::size_t i) {
    const LampAt& lamp = patch_.wire()[i];
    const Color ground = lights_.at(lamp.col, lamp.row) ? lit_.color : tone(lamp);
    drawNumber(picture_, at_.x(lamp) + 3, at_.y(lamp) + 3, static_cast<int>(i) + 1, dot_,
               inkOn(ground));
  }
  // The first lamp of each universe, over its neighbours.
  void drawFirstNumbers() {
    int universe = 0;
    for (std::size_t i = 0; i < patch_.wire().size(); ++i) {
      const LampAt& lamp = patch_.wire()[i];
      const auto first = firstChannel(lamp);
      if (!first || first->universe == universe) continue;
      universe = first->universe;
      const int number = static_cast<int>(i) + 1;
      const int width = widthOfNumber(number, 1);
      const int x = std::min(at_.x(lamp), picture_.width() - width - 4);
      const int y = std::min(at_.y(lamp), picture_.height() - heightOfNumber(1) - 4);
      picture_.fillRect(x, y, x + width + 3, y + heightOfNumber(1) + 3, kPaper);
      drawNumber(picture_, x + 2, y + 2, number, 1, kInk);
    }
  }

  Raster& picture_;
  const Patch& patch_;
  const LitLamps& lit_;
  WallGeometry at_;
  Grid<char> lights_;  // which lamps are lit
  int dot_ = 0;        // pixels of a number's dot; 0: there is no room for numbers
};

}  // namespace

WallGeometry::WallGeometry(const Patch& patch, int width, int height) {
  if (patch.cols() < 1 || patch.rows() < 1) return;
  cell = std::min(width / patch.cols(), height / patch.rows());
  left = (width - cell * patch.cols()) / 2;
  top = (height - cell * patch.rows()) / 2;
}

std::optional<LampAt> lampUnder(const Patch& patch, const Raster& picture, int x, int y) {
  const WallGeometry at(patch, picture.width(), picture.height());
  if (at.cell == 0 || x < at.left || y < at.top) return std::nullopt;
  const LampAt lamp{(x - at.left) / at.cell, (y - at.top) / at.cell};
  if (lamp.col >= patch.cols() || lamp.row >= patch.rows()) return std::nullopt;
  return lamp;
}

void drawWall(Raster& picture, const Patch& patch, const LitLamps& lit) {
  Drawing(picture, patch, lit).draw();
}

}  // namespace korvane
