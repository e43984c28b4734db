#pragma once

#include <array>
#include <cstdint>

#include "platform/Grid.h"

namespace korvane {

/// Channels of a universe. A channel code is channel + universe index x 512, universes 1 - 16.
inline constexpr std::int32_t kUniverseChannels = 512;
inline constexpr std::int32_t kUniverses = 16;
/// Last channel code that is sent: the first universe.
inline constexpr std::int32_t kLastSentChannel = kUniverseChannels;

/// The channel codes of each lamp's red, green and blue, and with them which bytes of a frame can
/// be sent at all.
class ChannelMap {
 public:
  using Codes = std::array<std::int32_t, 3>;

  /// Dimensions the map anew; every code is 0 then.
  void redim(int cols, int rows);
  /// The codes of a cell; outside the bounds raises kSubscript.
  const Codes& at(int col, int row) const { return codes_.at(col, row); }
  void set(int col, int row, int component, std::int32_t code);
  /// All codes, spare cells included.
  const Grid<Codes>& codes() const { return codes_; }

  /// In the memory order of a frame: 255 for a byte whose channel is sent, else 0. Spare cells
  /// are never sent.
  const Frame& sendable() const { return sendable_; }

 private:
  Grid<Codes> codes_;
  Frame sendable_;
};

}  // namespace korvane
