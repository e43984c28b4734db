#include "views/qt/machine/LoopGate.h"

#include <QTimer>

namespace korvane::qt {
namespace {

class QtAlarm : public Alarm {
 public:
  QtAlarm() {
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setSingleShot(true);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { onRing(); });
  }
  void in(std::int64_t milliseconds) override { timer_.start(static_cast<int>(milliseconds)); }
  void off() override { timer_.stop(); }

 private:
  QTimer timer_;
};

}  // namespace

LoopGate::LoopGate(Platform& platform, TimerQueue& timers)
    : EventGate(platform, timers, std::make_unique<QtAlarm>()) {}

}  // namespace korvane::qt
