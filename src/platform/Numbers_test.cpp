#include "platform/Numbers.h"

#include <gtest/gtest.h>

#include <limits>

#include "testing/FailureOf.h"

namespace korvane {
namespace {

constexpr std::int32_t kMost32 = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLeast32 = std::numeric_limits<std::int32_t>::min();
constexpr std::int16_t kMost16 = std::numeric_limits<std::int16_t>::max();
constexpr std::int16_t kLeast16 = std::numeric_limits<std::int16_t>::min();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();

TEST(Numbers, TiesGoToEven) {
  struct Case {
    double value;
    std::int16_t rounded;
  };
  for (const Case& c : {Case{0.5, 0}, Case{1.5, 2}, Case{2.5, 2}, Case{3.5, 4}, Case{-0.5, 0},
                        Case{-1.5, -2}, Case{-2.5, -2}, Case{0.4999999999999999, 0},
                        Case{0.5000000000000001, 1}, Case{2.51, 3}, Case{-2.51, -3}}) {
    EXPECT_EQ(roundEven(c.value), c.rounded) << c.value;
    EXPECT_EQ(roundToInt16(c.value), c.rounded) << c.value;
    EXPECT_EQ(roundToInt32(c.value), c.rounded) << c.value;
  }
}

TEST(Numbers, RoundingChecksTheRange) {
  EXPECT_EQ(roundToInt16(32767.5 - 1e-9), kMost16);
  EXPECT_EQ(roundToInt16(-32768.5), kLeast16);  // a tie, to the even neighbour
  EXPECT_EQ(roundToInt32(2147483647.4), kMost32);
  EXPECT_EQ(roundToInt32(-2147483648.5), kLeast32);
  for (const double value : {32767.5, 32768.0, -32768.6, 1e300, kInfinite, -kInfinite, kNoNumber})
    EXPECT_EQ(failureOf([&] { roundToInt16(value); }), kOverflow) << value;
  for (const double value : {2147483647.5, -2147483648.6, 1e300, kInfinite, kNoNumber})
    EXPECT_EQ(failureOf([&] { roundToInt32(value); }), kOverflow) << value;
}

TEST(Numbers, TheFloorGoesDownBelowZeroToo) {
  EXPECT_EQ(floorToInt16(2.99), 2);
  EXPECT_EQ(floorToInt16(-0.01), -1);
  EXPECT_EQ(floorToInt16(-2.0), -2);
  EXPECT_EQ(floorToInt32(32767.99), 32767);
  EXPECT_EQ(floorToInt32(-2147483648.0), kLeast32);
  EXPECT_EQ(failureOf([] { floorToInt16(32768); }), kOverflow);
  EXPECT_EQ(failureOf([] { floorToInt16(-32768.5); }), kOverflow);
  EXPECT_EQ(failureOf([] { floorToInt32(kNoNumber); }), kOverflow);
}

TEST(Numbers, DivisionTruncatesTowardZero) {
  EXPECT_EQ(divTrunc(7, 2), 3);
  EXPECT_EQ(divTrunc(-7, 2), -3);
  EXPECT_EQ(divTrunc(7, -2), -3);
  EXPECT_EQ(divTrunc(-7, -2), 3);
  EXPECT_EQ(modTrunc(7, 3), 1);
  EXPECT_EQ(modTrunc(-7, 3), -1);
  EXPECT_EQ(modTrunc(7, -3), 1);
}

TEST(Numbers, DivisionByZeroIsAFailure) {
  EXPECT_EQ(failureOf([] { divTrunc(1, 0); }), kDivisionByZero);
  EXPECT_EQ(failureOf([] { modTrunc(0, 0); }), kDivisionByZero);
}

TEST(Numbers, TheOneQuotientThatDoesNotFitIsAnOverflow) {
  EXPECT_EQ(failureOf([] { divTrunc(kLeast32, -1); }), kOverflow);
  EXPECT_EQ(modTrunc(kLeast32, -1), 0);
}

TEST(Numbers, SixteenBitArithmeticIsChecked) {
  EXPECT_EQ(add16(32000, 767), kMost16);
  EXPECT_EQ(sub16(-32000, 768), kLeast16);
  EXPECT_EQ(mul16(-256, 128), kLeast16);
  EXPECT_EQ(toInt16(-32768), kLeast16);
  EXPECT_EQ(failureOf([] { add16(kMost16, 1); }), kOverflow);
  EXPECT_EQ(failureOf([] { sub16(kLeast16, 1); }), kOverflow);
  EXPECT_EQ(failureOf([] { mul16(256, 128); }), kOverflow);
  EXPECT_EQ(failureOf([] { mul16(kLeast16, kLeast16); }), kOverflow);
  EXPECT_EQ(failureOf([] { toInt16(32768); }), kOverflow);
  EXPECT_EQ(failureOf([] { toInt16(std::int64_t{1} << 40); }), kOverflow);
}

}  // namespace
}  // namespace korvane
