#include "generators/kit/StepCurves.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

TEST(StepCurves, IntervalsFallWithTheSquareOfTheSpeed) {
  struct Case {
    std::int16_t speed;
    std::int32_t slow, fast;
  };
  for (const Case& c : {Case{0, 8050, 4050}, Case{50, 2050, 1050}, Case{80, 370, 210},
                        Case{75, 550, 300}, Case{99, 51, 50}, Case{100, 50, 50}}) {
    EXPECT_EQ(stepInterval(0.8, c.speed), c.slow) << c.speed;
    EXPECT_EQ(stepInterval(0.4, c.speed), c.fast) << c.speed;
  }
}

}  // namespace
}  // namespace korvane
