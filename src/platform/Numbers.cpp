#include "platform/Numbers.h"

#include <cmath>
#include <limits>

#include "platform/Failure.h"

namespace korvane {
namespace {

template <class Int>
Int checked(double whole) {
  if (!(whole >= std::numeric_limits<Int>::min() && whole <= std::numeric_limits<Int>::max())) {
    throw Failure(kOverflow);
  }
  return static_cast<Int>(whole);
}

}  // namespace

double roundEven(double value) { return std::nearbyint(value); }

std::int32_t roundToInt32(double value) { return checked<std::int32_t>(roundEven(value)); }
std::int16_t roundToInt16(double value) { return checked<std::int16_t>(roundEven(value)); }
std::int32_t floorToInt32(double value) { return checked<std::int32_t>(std::floor(value)); }
std::int16_t floorToInt16(double value) { return checked<std::int16_t>(std::floor(value)); }

std::int32_t divTrunc(std::int32_t dividend, std::int32_t divisor) {
  if (divisor == 0) throw Failure(kDivisionByZero);
  const std::int64_t quotient = std::int64_t{dividend} / divisor;
  return checked<std::int32_t>(static_cast<double>(quotient));
}

std::int32_t modTrunc(std::int32_t dividend, std::int32_t divisor) {
  if (divisor == 0) throw Failure(kDivisionByZero);
  return static_cast<std::int32_t>(std::int64_t{dividend} % divisor);
}

std::int16_t toInt16(std::int64_t value) {
  if (value < std::numeric_limits<std::int16_t>::min() ||
      value > std::numeric_limits<std::int16_t>::max()) {
    throw Failure(kOverflow);
  }
  return static_cast<std::int16_t>(value);
}

std::int16_t add16(std::int16_t a, std::int16_t b) { return toInt16(std::int64_t{a} + b); }
std::int16_t sub16(std::int16_t a, std::int16_t b) { return toInt16(std::int64_t{a} - b); }
std::int16_t mul16(std::int16_t a, std::int16_t b) { return toInt16(std::int64_t{a} * b); }

}  // namespace korvane
