#pragma once

#include <array>
#include <cstdint>

#include "platform/PictureBox.h"
#include "state/ChannelMap.h"

namespace korvane {

/// The 512 channels as a picture of 32 by 16 levels. A channel that was set lately carries a mark
/// that fades away. Only what looks different is painted, and only when refresh() is called.
class LevelPicture {
 public:
  static constexpr int kChannels = kUniverseChannels;
  static constexpr int kCols = 32;
  static constexpr int kRows = 16;
  static constexpr int kFadeMilliseconds = 700;

  /// Draws on the box, which must outlive it, and again whenever that gets another size.
  explicit LevelPicture(PictureBox& box);

  /// Takes a channel's level, 1 - 512, without a mark. Shown by the next refresh().
  void setLevel(int channel, std::uint8_t level);
  /// Marks the channel at the next refresh().
  void mark(int channel);
  /// Paints what has changed; `now` in milliseconds. False if nothing will change any more by
  /// itself: all marks have gone.
  bool refresh(std::int64_t now);

  /// The channel whose level stands at a pixel of the box; 0 if there is none.
  int channelAt(int x, int y) const;

 private:
  static constexpr int kSteps = 16;  // in which a mark fades

  struct Look {
    std::uint8_t level = 0;
    std::uint8_t mark = 0;  // 0 gone - kSteps fresh
    bool operator==(const Look&) const = default;
  };
  struct Cell {
    Look now;
    Look drawn;
    bool set = false;         // since the last refresh
    std::int64_t marked = 0;  // when, if a mark is left
  };
  struct Box {
    int left, top, right, bottom;
  };

  Cell& cell(int channel) { return cells_.at(static_cast<std::size_t>(channel - 1)); }
  Box place(int channel) const;
  void paint(int channel);
  void paintAll();

  PictureBox& box_;
  std::array<Cell, kChannels> cells_{};
};

}  // namespace korvane
