#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "playback/ListRows.h"

namespace korvane {

using RowSlots = std::vector<std::int16_t>;

/// The slot of the effect or the fade that a row shows. It stays the same when rows are moved.
inline std::int16_t slotAt(const ListView& list, int row) {
  return static_cast<std::int16_t>(std::stoi(list.cell(row, kSlotColumn)));
}

inline RowSlots slotsAt(const ListView& list, const std::vector<int>& rows) {
  RowSlots slots;
  for (const int row : rows) slots.push_back(slotAt(list, row));
  return slots;
}

/// The row that shows a slot, -1 if none does.
inline int rowOfSlot(const ListView& list, std::int16_t slot) {
  for (int row = 0; row < list.count(); ++row) {
    if (slotAt(list, row) == slot) return row;
  }
  return -1;
}

inline bool contains(const RowSlots& slots, std::int16_t slot) {
  return std::find(slots.begin(), slots.end(), slot) != slots.end();
}

/// Lets a person type the names of a list's rows in place. The tool makes its columns anew for each
/// show.
inline void letNamesBeTyped(ListView& list) {
  std::vector<ListView::Column> columns = list.columns();
  if (columns.empty() || columns.front().editable) return;
  columns.front().editable = true;
  list.setColumns(std::move(columns));
}

/// Moves slots, in their order, to before a row; `moveTo` moves the row of one to a place.
template <class MoveTo>
void moveSlots(const ListView& list, const RowSlots& slots, int before, const MoveTo& moveTo) {
  for (const std::int16_t slot : slots) {
    const bool down = rowOfSlot(list, slot) < before;
    moveTo(slot, down ? before - 1 : before);
    if (!down) ++before;
  }
}

}  // namespace korvane
