#pragma once

#include <cstdint>

#include "desk/cues/ShowStage.h"
#include "platform/Random.h"
#include "platform/TimerQueue.h"

namespace korvane {

struct AutoPlaySettings {
  enum class Unit { Seconds, Beats };

  double every = 30;  ///< seconds, 0.1 - 86400, or beats, 1 - 10000
  Unit unit = Unit::Seconds;
  bool random = false;  ///< any other effect of the list, not the next one

  bool operator==(const AutoPlaySettings&) const = default;
};

/// Plays without a list of cues: again and again the hidden deck takes another effect, and the
/// next fade of the fade list brings it up.
class AutoPlay {
 public:
  AutoPlay(TimerQueue& timers, ShowStage& stage);

  bool on() const { return on_; }
  /// The first change comes when its time is over.
  void setOn(bool on);
  const AutoPlaySettings& settings() const { return settings_; }
  /// The time until the next change counts anew.
  void set(const AutoPlaySettings& settings);
  void beat();
  /// Seconds or beats until the next change; negative while it is off.
  double remaining() const;

  /// Where it stands, in ms and beats since the last change; and going on from there.
  std::int64_t elapsed() const;
  void goOnFrom(std::int64_t elapsed, std::uint64_t chance);
  std::uint64_t chance() const { return chance_; }

 private:
  std::int64_t now() const;
  std::int64_t wholeTime() const;
  void wait();
  void tick();
  void change();
  std::int16_t another(ShowList list, bool random);

  TimerQueue& timers_;
  ShowStage& stage_;
  Timer timer_;
  AutoPlaySettings settings_;
  bool on_ = false;
  std::int64_t begin_ = 0;
  int beats_ = 0;
  std::uint64_t chance_ = 1;
};

}  // namespace korvane
