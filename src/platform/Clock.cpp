#include "platform/Clock.h"

#include <ctime>
#include <thread>

namespace korvane {
namespace {

class MachineClock : public Clock {
 public:
  Time now() override { return std::chrono::steady_clock::now(); }
  void sleepUntil(Time time) override { std::this_thread::sleep_until(time); }
  std::int64_t timeOfDay() override {
    using std::chrono::milliseconds;
    const auto today = std::chrono::system_clock::now();
    const std::time_t seconds = std::chrono::system_clock::to_time_t(today);
    const std::tm local = *std::localtime(&seconds);
    const auto since = std::chrono::duration_cast<milliseconds>(today.time_since_epoch());
    return ((local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec) * 1000LL +
           since.count() % 1000;
  }
};

}  // namespace

Clock& machineClock() {
  static MachineClock clock;
  return clock;
}

}  // namespace korvane
