#pragma once

#include <cstdint>

#include "state/Deck.h"

namespace korvane {

// How the speed of an effect, 0 - 100, becomes the interval of its step timer.

/// Factors of the curve: Image and Color Scroll, 8050 ms at speed 0; Fire, Fluid and Ticker, 4050.
inline constexpr double kSlowCurve = 0.8;
inline constexpr double kFastCurve = 0.4;

/// factor x (speed - 100)^2 + 50 milliseconds, rounded, ties to even.
std::int32_t stepInterval(double factor, std::int16_t speed);
/// Sets the step timer's interval by the speed of the deck's effect; also turns the timer on.
void setStepInterval(Deck& deck, double factor);
void runStepTimer(Deck& deck, double factor);

/// How long a colour of so many seconds holds, in milliseconds: three times as long at speed 0, as
/// listed at 50, a third at 100. Rounded, ties to even; kOverflow beyond 32 bits.
std::int32_t colorHoldInterval(double seconds, std::int16_t speed);
/// The factor between a listed time and the one held: 1 at kPlainSpeed, 3 at speed 0 and 100.
double holdStretch(std::int16_t speed);
/// Hold times as listed; also stands for a speed that is not set.
inline constexpr std::int16_t kPlainSpeed = 50;

}  // namespace korvane
