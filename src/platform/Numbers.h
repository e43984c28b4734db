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

}  // namespace korvane
