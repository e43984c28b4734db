#include "desk/undo/ShowHistory.h"

#include <algorithm>
#include <utility>

#include "desk/undo/ShowRestore.h"

namespace korvane {

void ShowHistory::begin() {
  forget(undo_);
  forget(redo_);
  present_ = now();
  ++version_;
  open_ = false;
}

void ShowHistory::played() {
  if (!present_.grid) return;
  ShowState playing = withPlaying(plugin_, present_);
  if (playing == present_) return;
  present_ = std::move(playing);
  ++version_;
}

void ShowHistory::note() {
  if (!plugin_.matrixForm.loaded()) return;
  if (!present_.grid) return begin();
  ShowState after = now();
  if (after == present_) return;
  ++version_;
  const StepName name = nameOfStep(present_, after);
  forget(redo_);
  if (!goesOn(name)) undo_.push_back({present_, name});
  const std::size_t cost = bytesBeside(after, present_);
  undo_.back().bytes += cost;
  bytes_ += cost;
  changedAt_ = plugin_.engine.timers.now();
  press_ = presses ? presses() : 0;
  open_ = true;
  present_ = std::move(after);
  keepWithin();
}

bool ShowHistory::goesOn(const StepName& name) const {
  if (!open_ || !name.grows || undo_.empty() || undo_.back().name.key != name.key) return false;
  if (presses && presses() != press_) return false;
  return (held && held()) || plugin_.engine.timers.now() - changedAt_ < kOneStep;
}

void ShowHistory::go(std::deque<Step>& from, std::deque<Step>& to) {
  note();
  if (from.empty() || plugin_.engine.desktop.modal() != nullptr || (held && held())) return;
  Step step = std::move(from.back());
  from.pop_back();
  restoreShow(plugin_, present_, step.other, onGrid);
  if (step.other.cues != present_.cues) {
    const CueList before = std::exchange(run_.list, *step.other.cues);
    run_.cues.replaced(before);
  }
  std::swap(step.other, present_);
  to.push_back(std::move(step));
  present_ = now();
  ++version_;
  open_ = false;
}

std::vector<std::string> ShowHistory::newest(std::size_t most) const {
  std::vector<std::string> names;
  for (auto step = undo_.rbegin(); step != undo_.rend() && names.size() < most; ++step) {
    if (std::ranges::find(names, step->name.text) == names.end()) names.push_back(step->name.text);
  }
  return names;
}

void ShowHistory::forget(std::deque<Step>& steps) {
  for (const Step& step : steps) bytes_ -= step.bytes;
  steps.clear();
}

void ShowHistory::keepWithin() {
  while (undo_.size() > 1 && (undo_.size() > kMostSteps || bytes_ > kMostBytes)) {
    bytes_ -= undo_.front().bytes;
    undo_.pop_front();
  }
}

}  // namespace korvane
