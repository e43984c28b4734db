#include "desk/network/LastError.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

using namespace std::chrono_literals;

TEST(LastError, IsEmptyWhileAllGoesWell) {
  LastError error;
  error.note(LastError::TimePoint{} + 5s, "");
  EXPECT_EQ(error.text(), "");
}

TEST(LastError, StaysUntilThreeSecondsWentWell) {
  const LastError::TimePoint start{};
  LastError error;
  error.note(start + 1s, "Connection refused");
  error.note(start + 2s, "");
  EXPECT_EQ(error.text(), "Connection refused");
  error.note(start + 3s, "Network is unreachable");
  EXPECT_EQ(error.text(), "Network is unreachable");
  error.note(start + 5999ms, "");
  EXPECT_EQ(error.text(), "Network is unreachable");
  error.note(start + 6s, "");
  EXPECT_EQ(error.text(), "");
}

}  // namespace
}  // namespace korvane
