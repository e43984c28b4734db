#include "generators/kit/StepCurves.h"

#include <cstdlib>

#include "platform/Numbers.h"

namespace korvane {

std::int32_t stepInterval(double factor, std::int16_t speed) {
  const double distance = speed - 100.0;
  return roundToInt32(factor * distance * distance + 50);
}

void setStepInterval(Deck& deck, double factor) {
  deck.timer1.setInterval(stepInterval(factor, deck.effect().speed));
}

void runStepTimer(Deck& deck, double factor) {
  setStepInterval(deck, factor);
  deck.timer1.enable();
}

double holdStretch(std::int16_t speed) { return 1 + std::abs(kPlainSpeed - speed) / 25.0; }

std::int32_t colorHoldInterval(double seconds, std::int16_t speed) {
  const double listed = 1000 * seconds;
  return roundToInt32(speed < kPlainSpeed ? listed * holdStretch(speed)
                                          : listed / holdStretch(speed));
}

}  // namespace korvane
