#include "views/win32/windows/Box.h"

#include <gtest/gtest.h>

namespace korvane::win32 {
namespace {

using Lengths = std::vector<int>;

TEST(SharedLengths, SpareRoomGoesByTheStretch) {
  EXPECT_EQ(lengths({{10, 20, 1}, {10, 20, 3}, {10, 20}}, 100), (Lengths{30, 50, 20}));
}

TEST(SharedLengths, WithoutStretchItGoesToThoseThatWantItMost) {
  EXPECT_EQ(lengths({{5, 10, 0, Grow::May}, {5, 10, 0, Grow::Wants}, {5, 10, 0, Grow::Wants}}, 51),
            (Lengths{10, 20, 21}));
  EXPECT_EQ(lengths({{5, 10, 0, Grow::May}, {5, 10}}, 50), (Lengths{40, 10}));
  EXPECT_EQ(lengths({{5, 10}, {5, 10}}, 50), (Lengths{10, 10}));
}

TEST(SharedLengths, WhatIsLackingIsTakenFromAllAboveTheirLeast) {
  EXPECT_EQ(lengths({{10, 30}, {10, 20}, {10, 10}}, 45), (Lengths{20, 15, 10}));
  EXPECT_EQ(lengths({{10, 30}, {10, 20}}, 3), (Lengths{10, 10}));
}

}  // namespace
}  // namespace korvane::win32
