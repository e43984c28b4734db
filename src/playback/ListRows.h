#pragma once

#include <cstdint>
#include <string>

#include "state/Engine.h"

namespace korvane {

// What the two effect lists and the fade list have in common. A row shows a record: its text is the
// record's name, its second column the number of the slot in which the record lives.

/// Most rows of a list.
inline constexpr std::int16_t kMostRows = 256;

/// Index of the column that holds the slot number.
inline constexpr int kSlotColumn = 1;

/// True if there is room for one more row; else shows why not.
bool roomForRow(Engine& engine, std::int16_t count);
/// Adds a row. The first one of a list is selected, without an event; the others are not.
void addRow(ListView& list, const std::string& name, std::int16_t slot);
/// The slot of one more record behind `count` rows. kOverflow if its sum does not fit into 16 bits.
std::int16_t nextSlot(std::int16_t count, std::int16_t deleted);
/// Slot of the current row. kObjectNotSet for an empty list.
std::int16_t slotOfCurrent(const ListView& list);
/// Removes the current row if it is marked and not the last one left, and selects the row above it.
/// Returns whether it did.
bool removeRow(ListView& list);
/// Exchanges the current row, if it is marked, with its neighbour (-1 up, 1 down) and selects the
/// neighbour's place. The records don't move.
void moveRow(ListView& list, int by);
/// Shows the warning if too many dead records have gathered. Their sum is of 16 bits: kOverflow.
void warnOfDeleted(Engine& engine);

}  // namespace korvane
