#pragma once

#include <cstdint>
#include <vector>

namespace korvane {

/// The one random generator (SplitMix64 by Steele, Lea and Flood, its top 24 bits). The same
/// seed gives the same numbers everywhere.
class Random {
 public:
  void seed(std::uint64_t value) { state_ = value; }

  /// Single precision, from 0 up to but excluding 1.
  float next() {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
    mixed ^= mixed >> 31;
    return static_cast<float>(mixed >> 40) * 0x1p-24F;
  }

 private:
  std::uint64_t state_ = 0;
};

/// The numbers 0 to count - 1 in random order, drawn with count numbers of the generator, and one
/// unused 0 behind them.
std::vector<std::int32_t> shuffled(Random& random, std::int32_t count);

}  // namespace korvane
