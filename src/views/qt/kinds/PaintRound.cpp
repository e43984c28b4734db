#include "views/qt/kinds/PaintRound.h"

#include <QCoreApplication>
#include <QTimer>
#include <algorithm>

namespace korvane::qt {

PaintRound& PaintRound::common() {
  static PaintRound round;
  return round;
}

void PaintRound::join(QObject& owner, std::function<void()> paint) {
  waiting_.emplace_back(&owner, std::move(paint));
  if (waiting_.size() > 1) return;
  const qint64 wait = last_.isValid() ? kLeastGap - last_.elapsed() : 0;
  QTimer::singleShot(static_cast<int>(std::max<qint64>(wait, 0)), Qt::PreciseTimer,
                     QCoreApplication::instance(), [this] { run(); });
}

void PaintRound::run() {
  last_.start();
  for (const auto& [owner, paint] : std::exchange(waiting_, {})) {
    if (owner) paint();
  }
}

}  // namespace korvane::qt
