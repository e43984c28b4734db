#include "desk/cues/PlugInStage.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "playback/ListRows.h"

namespace korvane {
namespace {

std::int16_t slotOf(const ListView::Row& row) {
  std::int16_t slot = RowRef::kGone;
  if (row.sub.empty()) return slot;
  const std::string& text = row.sub.front();
  std::from_chars(text.data(), text.data() + text.size(), slot);
  return slot;
}

int rowOf(const ListView& list, std::int16_t slot) {
  const auto found = std::find_if(list.rows().begin(), list.rows().end(),
                                  [slot](const auto& row) { return slotOf(row) == slot; });
  return found == list.rows().end() ? -1 : static_cast<int>(found - list.rows().begin());
}

constexpr int kEndOfFader = 100;

int endOf(Side side) { return side == Side::A ? -kEndOfFader : kEndOfFader; }

// Steps of a fade from end to end, as the master counts them.
int stepsOf(const FadeEntry& fade, double seconds, int cols, int rows) {
  switch (fade.type) {
    case kRandom:
    case kFlowDown:
    case kFillUp:
      return cols * rows;
    case kScrollUp:
    case kScrollDown:
      return rows;
    case kScrollLeft:
    case kScrollRight:
      return cols;
    default:
      if (seconds <= 1) return 10;
      return seconds <= 3 ? 30 : 50;
  }
}

}  // namespace

const ListView& PlugInStage::listView(ShowList list) const {
  const Engine& engine = plugin_.engine;
  if (list == ShowList::Fades) return engine.master.efxXList;
  return list == ShowList::Left ? engine.v.A.efxList : engine.v.B.efxList;
}

ListView& PlugInStage::listView(ShowList list) {
  return const_cast<ListView&>(static_cast<const PlugInStage&>(*this).listView(list));
}

std::vector<ShowStage::Row> PlugInStage::rows(ShowList list) const {
  std::vector<Row> all;
  for (const ListView::Row& row : listView(list).rows()) all.push_back({slotOf(row), row.text});
  return all;
}

bool PlugInStage::has(ShowList list, std::int16_t slot) const {
  return slot >= 0 && rowOf(listView(list), slot) >= 0;
}

std::int16_t PlugInStage::selected(ShowList list) const {
  const ListView& view = listView(list);
  return view.current() < 0 ? RowRef::kGone : slotOf(view.row(view.current()));
}

void PlugInStage::press(ShowList list, std::int16_t slot) {
  ListView& view = listView(list);
  const int row = rowOf(view, slot);
  if (row >= 0) view.click(row, 0);
}

bool PlugInStage::standsAt(Side side) const {
  const Engine& engine = plugin_.engine;
  return !engine.v.fadeRunning && engine.master.faderM.value() == endOf(side);
}

Side PlugInStage::seen() const {
  return plugin_.engine.master.faderM.value() > 0 ? Side::B : Side::A;
}

bool PlugInStage::fading() const { return plugin_.engine.v.fadeRunning; }

double PlugInStage::fadeLeft() const {
  const Engine& engine = plugin_.engine;
  const int steps = engine.v.fadeSteps - engine.v.fadeStep + 1;
  return fading() ? std::max(steps, 0) * engine.master.timerM.interval() / 1000.0 : 0;
}

// As a person does it: the list of fades stops the one that runs.
void PlugInStage::breakOffFade() {
  if (fading()) press(ShowList::Fades, selected(ShowList::Fades));
}

// From its own end the plug-in would play a part of the fade once more.
void PlugInStage::fadeTo(Side side) {
  breakOffFade();
  if (standsAt(side)) return;
  Master& master = plugin_.engine.master;
  (side == Side::A ? master.AutoFadeA : master.AutoFadeB).click();
}

void PlugInStage::cutTo(Side side) {
  breakOffFade();
  MatrixForm& tool = plugin_.matrixForm;
  (side == Side::A ? tool.fadeA : tool.fadeB).click();
}

// The box for the time keeps two decimals, and one tick more ends the fade.
std::int64_t PlugInStage::fadeLength(std::int16_t slot) const {
  const Variablen& v = plugin_.engine.v;
  if (slot < 0 || static_cast<std::size_t>(slot) >= v.efxX.size()) return 0;
  const FadeEntry& fade = v.efxX[static_cast<std::size_t>(slot)];
  const double seconds = std::round(fade.time * 100) / 100;
  const int steps = stepsOf(fade, seconds, v.matrixCols, v.matrixRows);
  if (steps < 1) return 0;
  const auto interval = static_cast<std::int64_t>(seconds * 1000 / steps);
  return std::max<std::int64_t>(interval, kShortestStep) * (steps + 1);
}

}  // namespace korvane
