#include "state/ChannelMap.h"

namespace korvane {

void ChannelMap::redim(int cols, int rows) {
  codes_.redim(cols, rows);
  sendable_.redim(cols, rows);
  // A code of 0, that of a cell without a definition, is sent like any other.
  for (int col = 0; col < cols; ++col) {
    for (int row = 0; row < rows; ++row) sendable_.at(col, row) = {255, 255, 255};
  }
}

void ChannelMap::set(int col, int row, int component, std::int32_t code) {
  const auto at = static_cast<std::size_t>(component);
  codes_.at(col, row).at(at) = code;
  sendable_.at(col, row)[at] = code <= kLastSentChannel ? 255 : 0;
}

}  // namespace korvane
