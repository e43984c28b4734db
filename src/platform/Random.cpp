#include "platform/Random.h"

#include <numeric>
#include <utility>

#include "platform/Numbers.h"

namespace korvane {

std::vector<std::int32_t> shuffled(Random& random, std::int32_t count) {
  std::vector<std::int32_t> order(static_cast<std::size_t>(count) + 1);
  std::iota(order.begin(), order.end() - 1, 0);
  for (std::int32_t i = 0; i < count; ++i) {
    const std::int32_t j = roundToInt32(static_cast<double>(random.next()) * count - 0.5);
    std::swap(order[static_cast<std::size_t>(i)], order[static_cast<std::size_t>(j)]);
  }
  return order;
}

}  // namespace korvane
