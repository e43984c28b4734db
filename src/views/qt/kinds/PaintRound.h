#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <functional>
#include <utility>
#include <vector>

namespace korvane::qt {

/// Paints together what changed in turns: two decks that step one after the other, the mix of both
/// and what shows it cost the windows one painting then, and one waking of the program. The first
/// change after a rest is painted at once. [window thread]
class PaintRound {
 public:
  static constexpr qint64 kLeastGap = 48;  ///< ms between two rounds; a deck steps each 50 at most

  /// The one of all windows.
  static PaintRound& common();

  /// Runs `paint` with the next round, unless the owner has gone by then.
  void join(QObject& owner, std::function<void()> paint);

 private:
  void run();

  std::vector<std::pair<QPointer<QObject>, std::function<void()>>> waiting_;
  QElapsedTimer last_;
};

}  // namespace korvane::qt
