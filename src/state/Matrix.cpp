#include "state/Matrix.h"

namespace korvane {
namespace {

constexpr int kComponents = 3;

}  // namespace

void Matrix::redim() {
  channelMap.redim(cols, rows);
  cellConfigured.redim(cols, rows);
}

void Matrix::countChannelsUp(std::int32_t first, Order order) {
  const bool byColumn = order == Order::ColumnByColumn;
  const int lines = byColumn ? cols : rows;
  const int lamps = byColumn ? rows : cols;
  std::int32_t code = first;
  for (int line = 0; line < lines; ++line) {
    for (int lamp = 0; lamp < lamps; ++lamp) {
      for (int component = 0; component < kComponents; ++component)
        channelMap.set(byColumn ? line : lamp, byColumn ? lamp : line, component, code++);
    }
  }
}

void Matrix::configureAll() {
  for (int col = 0; col < cols; ++col) {
    for (int row = 0; row < rows; ++row) cellConfigured.at(col, row) = true;
  }
}

}  // namespace korvane
