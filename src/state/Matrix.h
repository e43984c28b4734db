#pragma once

#include <cstdint>

#include "platform/Grid.h"
#include "state/Boolean.h"
#include "state/ChannelMap.h"

namespace korvane {

/// The grid of lamps as its definition has it: its size, the channels of each lamp, and which lamps
/// were given theirs.
struct Matrix {
  /// The order in which lamps get their channels.
  enum class Order { ColumnByColumn, RowByRow };

  std::int16_t cols = 0;
  std::int16_t rows = 0;
  ChannelMap channelMap;
  Grid<Boolean> cellConfigured;

  /// Dimensions map and flags to the size, which clears them. kSubscript for a negative size,
  /// kOutOfMemory for a huge one.
  void redim();
  /// Gives all lamps the channel codes from `first` on, red, green and blue of one after the other.
  void countChannelsUp(std::int32_t first, Order order);
  /// Marks all lamps as configured.
  void configureAll();
};

}  // namespace korvane
