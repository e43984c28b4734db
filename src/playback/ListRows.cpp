#include "playback/ListRows.h"

#include "platform/Numbers.h"
#include "platform/Text.h"

namespace korvane {
namespace {

constexpr int kMostDeleted = 30;

}  // namespace

bool roomForRow(Engine& engine, std::int16_t count) {
  if (count < kMostRows) return true;
  engine.platform.messageBox("more then 256 effects are not allowed !");
  return false;
}

void addRow(ListView& list, const std::string& name, std::int16_t slot) {
  list.add(name, {std::to_string(slot)});
  if (list.count() == 1) list.select(0);
}

std::int16_t nextSlot(std::int16_t count, std::int16_t deleted) {
  return sub16(add16(add16(count, 1), deleted), 1);
}

std::int16_t slotOfCurrent(const ListView& list) {
  if (list.current() < 0) throw Failure(kObjectNotSet, list.name() + " has no row");
  return floorToInt16(toReal(list.cell(list.current(), kSlotColumn), {}));
}

bool removeRow(ListView& list) {
  const int row = list.current();
  if (list.count() < 2 || row != list.selected()) return false;
  list.remove(row);
  list.select(row < 1 ? 0 : row - 1);
  return true;
}

void moveRow(ListView& list, int by) {
  const int row = list.current();
  const int neighbour = row + by;
  if (list.count() < 2 || row < 0 || row != list.selected()) return;
  if (neighbour < 0 || neighbour >= list.count()) return;
  list.exchange(row, neighbour);
  list.select(neighbour);
}

void warnOfDeleted(Engine& engine) {
  const Variablen& v = engine.v;
  if (add16(add16(v.efxADeleted, v.efxBDeleted), v.efxXDeleted) <= kMostDeleted) return;
  engine.platform.messageBox(
      "more then 30 deleted effects in memory\nplease Save and Reload effects !");
}

}  // namespace korvane
