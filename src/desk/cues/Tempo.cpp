#include "desk/cues/Tempo.h"

#include <algorithm>
#include <cmath>

namespace korvane {
namespace {

constexpr double kMinuteOfBeats = 60000;      // ms
constexpr std::int64_t kLongestPause = 3000;  // ms between two taps: that of the slowest tempo
constexpr std::size_t kMostTaps = 9;          // that are looked at

}  // namespace

Tempo::Tempo(TimerQueue& timers) : timers_(timers), timer_(timers, "timerTempo") {
  timer_.onTimer = [this] { tick(); };
}

std::int64_t Tempo::now() const {
  return timers_.clock ? std::max(timers_.now(), timers_.clock()) : timers_.now();
}

void Tempo::setBpm(double bpm) {
  bpm_ = bpm <= 0 ? 0 : std::clamp(bpm, kSlowest, kFastest);
  timer_.disable();
  if (bpm_ == 0) return;
  next_ = static_cast<double>(now()) + kMinuteOfBeats / bpm_;
  waitForNext();
}

// The whole milliseconds of a timer must not add up to another tempo.
void Tempo::waitForNext() {
  const auto wait = std::llround(next_ - static_cast<double>(now()));
  timer_.setInterval(std::max(static_cast<std::int32_t>(wait), kShortestStep));
  timer_.enable();
}

void Tempo::goOn() {
  if (bpm_ > 0 && !timer_.enabled()) setBpm(bpm_);
}

void Tempo::tick() {
  next_ = std::max(next_ + kMinuteOfBeats / bpm_, static_cast<double>(now()));
  waitForNext();
  beat();
}

void Tempo::beat() {
  lastBeat_ = now();
  if (onBeat) onBeat();
}

// A tap just behind a beat of the tempo means that beat.
void Tempo::tap() {
  const std::int64_t time = now();
  const bool isNew = bpm_ == 0 || static_cast<double>(time - lastBeat_) * bpm_ > kMinuteOfBeats / 2;
  if (!taps_.empty() && time - taps_.back() > kLongestPause) taps_.clear();
  taps_.push_back(time);
  if (taps_.size() > kMostTaps) taps_.erase(taps_.begin());
  if (taps_.size() > 1 && taps_.back() > taps_.front()) {
    const auto way = static_cast<double>(taps_.back() - taps_.front());
    setBpm(kMinuteOfBeats * static_cast<double>(taps_.size() - 1) / way);
  }
  if (isNew) beat();
}

}  // namespace korvane
