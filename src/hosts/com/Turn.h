#pragma once

#include <utility>

namespace korvane {

/// Who acts on the plug-in at the moment.
struct Turn {
  bool script = false;  ///< a script presses the controls, not a person
  int waysOut = 0;      ///< calls that have left for the desk or a modal window and will come back
};

/// While it exists, a script has the turn.
class ScriptTurn {
 public:
  explicit ScriptTurn(Turn& turn) : turn_(turn), before_(std::exchange(turn.script, true)) {}
  ~ScriptTurn() { turn_.script = before_; }
  ScriptTurn(const ScriptTurn&) = delete;
  ScriptTurn& operator=(const ScriptTurn&) = delete;

 private:
  Turn& turn_;
  bool before_;
};

/// A way out of the plug-in. Until it comes back, a person may act.
class WayOut {
 public:
  explicit WayOut(Turn& turn) : turn_(turn), before_(std::exchange(turn.script, false)) {
    ++turn_.waysOut;
  }
  ~WayOut() {
    --turn_.waysOut;
    turn_.script = before_;
  }
  WayOut(const WayOut&) = delete;
  WayOut& operator=(const WayOut&) = delete;

 private:
  Turn& turn_;
  bool before_;
};

}  // namespace korvane
