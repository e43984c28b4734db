#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "platform/TimerQueue.h"

namespace korvane {

/// A steady beat, set by a number or tapped.
class Tempo {
 public:
  static constexpr double kSlowest = 20, kFastest = 300;  // beats per minute

  explicit Tempo(TimerQueue& timers);

  /// Beats per minute; 0: none come by themselves.
  double bpm() const { return bpm_; }
  /// 0, or kSlowest - kFastest; what lies beyond means that end.
  void setBpm(double bpm);
  /// A beat by hand. From the second on the taps set the tempo; three seconds and more without one
  /// begin anew.
  void tap();
  /// Goes on after all timers were stopped.
  void goOn();

  std::function<void()> onBeat;

 private:
  void tick();
  void beat();
  void waitForNext();
  std::int64_t now() const;

  TimerQueue& timers_;
  Timer timer_;
  double bpm_ = 0;
  std::int64_t lastBeat_ = 0;
  double next_ = 0;  // when the next beat is due, in ms
  std::vector<std::int64_t> taps_;
};

}  // namespace korvane
