#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "desk/wall/WallLevels.h"

namespace korvane {

/// How an output's lamps show the values of a picture.
struct OutputLook {
  static constexpr double kLeastGamma = 1;
  static constexpr double kMostGamma = 4;

  /// The curve from a value to light, 1 - 4; 1 is linear. Lamps that are bright too soon want
  /// about 2.2.
  double gamma = 1;
  /// Shows steps too small for a byte, which a curve loses at the dark end, by neighbours: of
  /// lamps that want 0.25, one in four shows 1. Each lamp has a place of its own in a pattern of
  /// 8 x 8 lamps, so a picture that stands still is sent as one, and a lamp that changes changes
  /// no other.
  bool smooth = false;
  /// White balance: the share of red, green and blue, 0 - 100 %, behind the curve.
  std::array<int, 3> balance = {100, 100, 100};

  /// Makes the curve steeper by so much gamma, or flatter, in tenths and as far as it goes.
  void bendCurve(double by);
  /// Adds so many per cent to the share of a colour, 0 red - 2 blue, as far as it goes.
  void shiftShare(std::size_t color, int percent);

  bool operator==(const OutputLook&) const = default;
};

/// Makes the bytes that one output sends, which are the bytes that its monitor shows:
/// 255 x (value / 255 x master) ^ gamma x balance, to the nearest byte, halves up, or smoothed.
class OutputStage {
 public:
  explicit OutputStage(const OutputLook& look = {}) : look_(look) {}

  const OutputLook& look() const { return look_; }
  /// A value beyond its range means the nearest one.
  void setLook(const OutputLook& look);

  WallPicture pass(const LevelledPicture& levelled);

 private:
  // 256ths of a byte by component and value. The upper bytes are what is sent.
  using Table = std::array<std::array<std::uint16_t, 256>, 3>;

  const Table& tableFor(int master);
  std::uint8_t byteOf(const Table& table, std::size_t component, std::uint8_t value,
                      std::uint8_t threshold) const;

  OutputLook look_;
  std::optional<int> tableMaster_;  // the master for which the table was made
  Table table_{};
};

}  // namespace korvane
