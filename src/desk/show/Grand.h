#pragma once

#include "desk/show/DeskHost.h"

namespace korvane {

/// What stands between the desk's levels and what leaves the desk: the grand master, Freeze and
/// Blackout. The decks play on behind it.
class Grand {
 public:
  static constexpr int kFull = 100;

  int master = kFull;     ///< percent, 0 - 100
  bool blackout = false;  ///< all lamps dark; stronger than Freeze
  bool dark = false;      ///< all lamps dark since the output was switched off

  bool frozen() const { return frozen_; }
  /// Holds what left the desk last, until it is set to false.
  void freeze(bool on);
  /// What leaves the desk while the plug-in has set these levels.
  const Levels& leaving(const Levels& live);

 private:
  bool frozen_ = false;
  Levels held_{};  // what would leave without Blackout
  Levels left_{};
};

}  // namespace korvane
