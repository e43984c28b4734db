#include "desk/wall/WallLevels.h"

#include <algorithm>

namespace korvane {

LevelledPicture LevelStage::pass(const WallPicture& picture, const WallLevels& levels) {
  if (!held_ || !levels.freeze) {
    const int master = std::clamp(levels.master, 0, 100);
    held_ = {picture, levels.blackout ? 0 : master};
  }
  return {held_->picture, levels.blackout ? 0 : held_->master};
}

}  // namespace korvane
