#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "desk/output/LampFeed.h"
#include "desk/windows/LevelPicture.h"
#include "platform/Controls.h"
#include "platform/Desktop.h"
#include "platform/PictureBox.h"

namespace korvane {

/// The 512 levels of a universe, as a picture of 32 by 16: of the wall as it leaves the desk, or
/// the bytes that one of the outputs sends.
class ChannelMonitor : public Form {
 public:
  explicit ChannelMonitor(Desktop& desktop);

  /// Takes what leaves the desk, for a wall of so many universes. Channels whose level is another
  /// one are marked.
  void take(const LampFeed& feed, int universes);
  /// Shows it, some ten times a second at most; `now` in milliseconds, called all the while.
  void refresh(std::int64_t now);
  /// The levels that are shown.
  const Slots& shown() const { return taken_; }

  ListBox universe;
  PictureBox levels;
  Label channel;

 private:
  /// What an entry of the list stands for.
  struct View {
    std::string name;
    int output = -1;  ///< -1: the wall
    int part = 0;     ///< universe, or for DDP block of lamps, from 0

    bool operator==(const View&) const = default;
  };

  static std::vector<View> viewsOf(const LampFeed& feed, int universes);
  static Slots slotsOf(const LampFeed& feed, const View& view);
  void setViews(std::vector<View> views);
  void tell(int x, int y);

  LevelPicture picture_;
  std::vector<View> views_;
  View viewed_;  // whose levels are shown
  Slots taken_{};
  std::optional<std::int64_t> painted_;  // when
};

}  // namespace korvane
