#pragma once

#include <cstdint>

#include "desk/show/DeskHost.h"
#include "desk/windows/LevelPicture.h"
#include "platform/Controls.h"
#include "platform/Desktop.h"
#include "platform/PictureBox.h"

namespace korvane {

/// The 512 levels that leave the desk, as a picture of 32 by 16.
class ChannelMonitor : public Form {
 public:
  explicit ChannelMonitor(Desktop& desktop);

  /// Takes what leaves the desk. Channels whose level is another one are marked.
  void take(const Levels& levels);
  /// Shows it; `now` in milliseconds. False if nothing will change any more by itself.
  bool refresh(std::int64_t now);

  PictureBox levels;
  Label channel;

 private:
  void tell(int x, int y);

  LevelPicture picture_;
  Levels taken_{};
};

}  // namespace korvane
