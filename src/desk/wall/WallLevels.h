#pragma once

#include <optional>

#include "desk/wall/WallPicture.h"

namespace korvane {

/// What the operator sets between the mixed picture and all outputs.
struct WallLevels {
  int master = 100;  ///< grand master, 0 - 100 %
  bool blackout = false;
  bool freeze = false;

  bool operator==(const WallLevels&) const = default;
};

/// A picture, and the share of its light that the outputs are to show. It is not reckoned in here:
/// an output does that together with its curve, so nothing is rounded twice.
struct LevelledPicture {
  WallPicture picture;
  int master = 100;  ///< 0 - 100 %

  bool operator==(const LevelledPicture&) const = default;
};

/// Lets pictures through as the levels say: grand master, then blackout, then freeze. Freeze comes
/// last, so it holds what goes out, lit or dark, whatever the other two do. One thing is stronger:
/// a blackout that comes while a lit wall is frozen makes it dark for as long as it lasts.
class LevelStage {
 public:
  /// What goes out now. Call it for each picture, and with the last one when the levels change.
  LevelledPicture pass(const WallPicture& picture, const WallLevels& levels);

 private:
  std::optional<LevelledPicture> held_;
};

}  // namespace korvane
