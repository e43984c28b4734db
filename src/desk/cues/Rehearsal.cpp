#include "desk/cues/Rehearsal.h"

#include <algorithm>

namespace korvane {

Rehearsal::Rehearsal(const ShowStage& stage)
    : side_(stage.seen()), atEnd_(stage.standsAt(stage.seen())), master_(stage.master()) {
  for (const ShowList list : kShowLists) of(list) = {stage.rows(list), stage.selected(list)};
  for (const Row& fade : of(ShowList::Fades).rows)
    lengths_[fade.slot] = stage.fadeLength(fade.slot);
}

bool Rehearsal::has(ShowList list, std::int16_t slot) const {
  const std::vector<Row>& rows = of(list).rows;
  return std::any_of(rows.begin(), rows.end(), [slot](const Row& row) { return row.slot == slot; });
}

void Rehearsal::press(ShowList list, std::int16_t slot) {
  of(list).selected = slot;
  if (list == ShowList::Fades) fadeEnds_ = timers.now();
}

void Rehearsal::fadeTo(Side side) {
  if (standsAt(side)) return;
  const std::int16_t fade = selected(ShowList::Fades);
  side_ = side;
  atEnd_ = true;
  fadeEnds_ = timers.now() + (has(ShowList::Fades, fade) ? fadeLength(fade) : 0);
}

void Rehearsal::cutTo(Side side) {
  side_ = side;
  atEnd_ = true;
  fadeEnds_ = timers.now();
}

void Rehearsal::bringTo(ShowStage& stage) const {
  for (const ShowList list : kShowLists) {
    if (stage.has(list, selected(list))) stage.press(list, selected(list));
  }
  if (atEnd_) stage.cutTo(side_);
  stage.setMaster(master_);
}

}  // namespace korvane
