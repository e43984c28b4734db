#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "desk/cues/Cue.h"
#include "desk/cues/ShowStage.h"
#include "platform/Random.h"
#include "platform/TimerQueue.h"

namespace korvane {

/// Where a run of cues stands: enough to go on from there in another run.
struct CuePosition {
  int on = -1;               ///< the cue that is on, from 0; -1 for none
  int next = -1;             ///< the cue that Go starts; -1 for none
  std::int64_t elapsed = 0;  ///< ms since the cue that is on has started
  int beats = 0;             ///< beats since then
  bool paused = false;
  std::vector<int> round;    ///< in random order: cues still to come, the nearest last
  std::uint64_t chance = 1;  ///< from which the next rounds are drawn

  bool operator==(const CuePosition&) const = default;
};

/// Runs a list of cues: which one is on, which is next, and when that follows by itself. A cue one
/// of whose rows is gone is passed over.
class CueRunner {
 public:
  CueRunner(TimerQueue& timers, ShowStage& stage, CueList& list);

  /// Starts the next cue, from whatever is on. A second Go within the list's guard is none.
  void go();
  /// Starts the cue before the one that is on; in random order, the one that was on before it.
  void back();
  /// Holds the time and beats until the cue's end, or lets them go on. Fades go to their end.
  void pause();
  /// Starts this cue; nothing for one that is lost or isn't there.
  void jump(int cue);
  /// Go will start this cue.
  void setNext(int cue);
  /// No cue is on any more; what is on stays.
  void stop();
  void beat();

  int on() const { return at_.on; }
  int next() const;
  bool paused() const { return at_.paused; }
  /// True if all rows of a cue are there.
  bool playable(int cue) const;
  /// Seconds or beats until the cue that is on ends by itself; negative if it doesn't.
  double remaining() const;

  CuePosition position() const;
  /// Goes on from a position, without touching the stage.
  void goOnFrom(const CuePosition& position);

  /// A cue has been edited: if it is on, its end is another one.
  void changed(int cue);
  // The list has been edited; the cues that are on and next stay so.
  void inserted(int at);
  void removed(int at);
  void exchanged(int one, int other);
  /// The order is another one: what is next is found anew. A cue whose time ran out while there was
  /// none, as at the end of a list that is a loop now, is followed at once.
  void reordered();
  /// The list is another one than before: a cue that is in both stays on.
  void replaced(const CueList& before);

 private:
  std::int64_t now() const;
  std::int64_t elapsed() const;
  std::int64_t wholeTime() const;
  void start(int cue, std::int64_t begin);
  void play(const Cue& cue);
  void wait();
  void tick();
  void follow(std::int64_t begin);
  int after(int cue) const;
  int before(int cue) const;
  /// What comes after the cue that is on.
  int found();
  void findNext();
  void deal();
  int drawn();
  void remember(int cue);
  void mapped(const std::function<int(int)>& place);

  TimerQueue& timers_;
  ShowStage& stage_;
  CueList& list_;
  Timer timer_;
  CuePosition at_;
  std::int64_t begin_ = 0;  // of the cue that is on
  std::int64_t lastGo_;
  std::vector<int> played_;  // in random order, the latest last
};

}  // namespace korvane
