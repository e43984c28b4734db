#pragma once

#include <QCoreApplication>

namespace korvane::qt {

/// Handles the events that wait, and those that come of them: what a window posts to itself, and
/// what the window system answers. It waits for nothing that takes time.
inline void settle() {
  constexpr int kRounds = 20;
  for (int round = 0; round < kRounds; ++round) QCoreApplication::processEvents();
}

}  // namespace korvane::qt
