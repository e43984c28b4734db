#include "desk/cues/AutoPlay.h"

#include <algorithm>
#include <cmath>

namespace korvane {

AutoPlay::AutoPlay(TimerQueue& timers, ShowStage& stage)
    : timers_(timers), stage_(stage), timer_(timers, "timerAutoPlay") {
  timer_.onTimer = [this] { tick(); };
}

std::int64_t AutoPlay::now() const {
  return timers_.clock ? std::max(timers_.now(), timers_.clock()) : timers_.now();
}

std::int64_t AutoPlay::elapsed() const { return on_ ? now() - begin_ : 0; }

std::int64_t AutoPlay::wholeTime() const {
  return static_cast<std::int64_t>(std::llround(settings_.every * 1000));
}

void AutoPlay::setOn(bool on) {
  if (on == on_) return;
  on_ = on;
  begin_ = now();
  beats_ = 0;
  timer_.disable();
  if (on) wait();
}

void AutoPlay::set(const AutoPlaySettings& settings) {
  if (settings == settings_) return;
  settings_ = settings;
  begin_ = now();
  beats_ = 0;
  timer_.disable();
  if (on_) wait();
}

void AutoPlay::goOnFrom(std::int64_t elapsed, std::uint64_t chance) {
  chance_ = chance;
  on_ = true;
  begin_ = now() - elapsed;
  timer_.disable();
  wait();
}

void AutoPlay::wait() {
  if (settings_.unit != AutoPlaySettings::Unit::Seconds) return;
  const std::int64_t left = std::max<std::int64_t>(wholeTime() - elapsed(), kShortestStep);
  timer_.setInterval(static_cast<std::int32_t>(left));
  timer_.enable();
}

// A fade that still runs goes to its end first.
void AutoPlay::tick() {
  timer_.disable();
  if (stage_.fading()) {
    timer_.setInterval(kLookAtFade);
    return timer_.enable();
  }
  const std::int64_t planned = begin_ + wholeTime();
  begin_ = now() - planned > kMostLate ? now() : planned;
  wait();
  change();
}

void AutoPlay::beat() {
  if (!on_ || settings_.unit != AutoPlaySettings::Unit::Beats) return;
  ++beats_;
  if (beats_ < settings_.every || stage_.fading()) return;
  beats_ = 0;
  change();
}

double AutoPlay::remaining() const {
  if (!on_) return -1;
  const double done = settings_.unit == AutoPlaySettings::Unit::Beats
                          ? beats_
                          : static_cast<double>(elapsed()) / 1000;
  return std::max(0.0, settings_.every - done);
}

// The row behind the selected one, or any other; of a list with one row that one.
std::int16_t AutoPlay::another(ShowList list, bool random) {
  const std::vector<ShowStage::Row> rows = stage_.rows(list);
  if (rows.empty()) return RowRef::kGone;
  const std::int16_t selected = stage_.selected(list);
  const auto found = std::find_if(rows.begin(), rows.end(),
                                  [selected](const auto& row) { return row.slot == selected; });
  const auto at = static_cast<std::size_t>(found - rows.begin());
  std::size_t step = 1;
  if (random && rows.size() > 2) {
    Random chance;
    chance.seed(chance_++);
    step += static_cast<std::size_t>(chance.next() * static_cast<float>(rows.size() - 1));
  }
  return rows[(at + step) % rows.size()].slot;
}

void AutoPlay::change() {
  const Side hidden = otherSide(stage_.seen());
  stage_.press(listOf(hidden), another(listOf(hidden), settings_.random));
  stage_.press(ShowList::Fades, another(ShowList::Fades, false));
  stage_.fadeTo(hidden);
}

}  // namespace korvane
