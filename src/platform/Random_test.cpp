#include "platform/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

namespace korvane {
namespace {

TEST(Random, GivesTheGeneratorsPublishedNumbers) {
  // The first outputs of SplitMix64 for the seed 1234567, cut to their top 24 bits.
  Random random;
  random.seed(1234567);
  for (const std::uint64_t output :
       {6457827717110365317U, 3203168211198807973U, 9817491932198370423U, 4593380528125082431U,
        16408922859458223821U}) {
    EXPECT_EQ(random.next(), static_cast<float>(output >> 40) / 16777216.0F);
  }
}

TEST(Random, TheSameSeedGivesTheSameNumbers) {
  Random one;
  Random other;
  one.seed(7);
  other.seed(7);
  for (int i = 0; i < 100; ++i) EXPECT_EQ(one.next(), other.next());
  other.seed(8);
  EXPECT_NE(one.next(), other.next());
}

TEST(Random, StaysFromZeroUpToButExcludingOneAndFillsThatRange) {
  Random random;
  random.seed(1);
  float least = 1;
  float most = 0;
  double sum = 0;
  constexpr int kDraws = 200000;
  for (int i = 0; i < kDraws; ++i) {
    const float value = random.next();
    least = std::min(least, value);
    most = std::max(most, value);
    sum += static_cast<double>(value);
  }
  EXPECT_GE(least, 0.0F);
  EXPECT_LT(most, 1.0F);
  EXPECT_LT(least, 0.001F);
  EXPECT_GT(most, 0.999F);
  EXPECT_NEAR(sum / kDraws, 0.5, 0.005);
}

TEST(Random, AShuffledOrderHoldsEachNumberOnceAndAnUnusedZero) {
  Random random;
  random.seed(3);
  for (const std::int32_t count : {0, 1, 2, 12, 144, 2500}) {
    std::vector<std::int32_t> order = shuffled(random, count);
    ASSERT_EQ(order.size(), static_cast<std::size_t>(count) + 1);
    EXPECT_EQ(order.back(), 0);
    order.pop_back();
    std::sort(order.begin(), order.end());
    std::vector<std::int32_t> all(static_cast<std::size_t>(count));
    std::iota(all.begin(), all.end(), 0);
    EXPECT_EQ(order, all);
  }
}

TEST(Random, AShuffleDrawsOneNumberForEachEntry) {
  Random one;
  Random other;
  shuffled(one, 10);
  for (int i = 0; i < 10; ++i) other.next();
  EXPECT_EQ(one.next(), other.next());
}

TEST(Random, AShuffleReachesEveryPlace) {
  Random random;
  random.seed(5);
  std::vector<int> placesOfZero(4);
  for (int i = 0; i < 4000; ++i) {
    const std::vector<std::int32_t> order = shuffled(random, 4);
    ++placesOfZero[static_cast<std::size_t>(std::find(order.begin(), order.end(), 0) -
                                            order.begin())];
  }
  for (const int times : placesOfZero) EXPECT_GT(times, 500);
}

}  // namespace
}  // namespace korvane
