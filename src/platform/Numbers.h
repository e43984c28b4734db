#pragma once

#include <cstdint>

namespace korvane {

// The arithmetic of the pictures, by name. Every conversion is checked: a result that does not
// fit raises Failure kOverflow, a zero divisor raises kDivisionByZero.

/// Nearest integer, ties to even.
double roundEven(double value);
/// Nearest integer, ties to even, as a signed 32-bit or 16-bit number.
std::int32_t roundToInt32(double value);
std::int16_t roundToInt16(double value);
/// Floor ("Int"), as a signed 32-bit or 16-bit number.
std::int32_t floorToInt32(double value);
std::int16_t floorToInt16(double value);
/// Integer division, truncating toward zero, and its remainder.
std::int32_t divTrunc(std::int32_t dividend, std::int32_t divisor);
std::int32_t modTrunc(std::int32_t dividend, std::int32_t divisor);

/// Stores a number in 16 bits.
std::int16_t toInt16(std::int64_t value);
/// 16-bit signed sum, difference and product.
std::int16_t add16(std::int16_t a, std::int16_t b);
std::int16_t sub16(std::int16_t a, std::int16_t b);
std::int16_t mul16(std::int16_t a, std::int16_t b);

/// Step interval in milliseconds of Image and Color Scroll (factor 0.8) and of Fire, Fluid and
/// Ticker (factor 0.4): factor x (speed - 100)^2 + 50, rounded, ties to even. Speed 0 - 100.
std::int32_t stepInterval(double factor, std::int16_t speed);

/// How long a colour of so many seconds holds, in milliseconds: three times as long at speed 0, as
/// listed at 50, a third at 100. Rounded, ties to even.
std::int32_t colorHoldInterval(double seconds, std::int16_t speed);
/// The factor between a listed time and the one held: 1 at kPlainSpeed, 3 at speed 0 and 100.
double holdStretch(std::int16_t speed);
/// Hold times as listed; also stands for a speed that is not set.
inline constexpr std::int16_t kPlainSpeed = 50;

}  // namespace korvane
