#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace korvane {

/// Makes the compiler believe that somebody reads and writes this memory here.
inline void barrier(const void* memory) { asm volatile("" : : "r,m"(memory) : "memory"); }

/// Nanoseconds that one call takes, over a batch of calls.
template <class Work>
double nanosecondsEach(int calls, Work& work) {
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < calls; ++i) work();
  const std::chrono::duration<double, std::nano> passed = std::chrono::steady_clock::now() - start;
  return passed.count() / calls;
}

/// Median of the numbers; they get another order.
inline double median(std::vector<double>& numbers) {
  const auto middle = numbers.begin() + static_cast<std::ptrdiff_t>(numbers.size() / 2);
  std::nth_element(numbers.begin(), middle, numbers.end());
  return *middle;
}

/// Measures `work` in turns with a memcpy of `bytes` bytes, so that noise of the machine hits both.
/// Reports the medians of all turns: `ns` of one call, `memcpy_ns`, and `ratio`, the one in the
/// other. The benchmark must be registered with inTurns.
template <class Work>
void measureBesideMemcpy(benchmark::State& state, std::size_t bytes, Work work) {
  constexpr int kCopies = 400;
  constexpr double kTurn = 100'000;  // nanoseconds of work in one turn
  std::vector<std::uint8_t> from(bytes, 1);
  std::vector<std::uint8_t> to(bytes);
  auto copy = [&] {
    std::memcpy(to.data(), from.data(), bytes);
    barrier(to.data());
  };
  const int calls = std::max(1, static_cast<int>(kTurn / nanosecondsEach(20, work)));
  std::vector<double> times;
  std::vector<double> copyTimes;
  std::vector<double> ratios;
  for ([[maybe_unused]] auto turn : state) {
    copyTimes.push_back(nanosecondsEach(kCopies, copy));
    times.push_back(nanosecondsEach(calls, work));
    ratios.push_back(times.back() / copyTimes.back());
    state.SetIterationTime(times.back() / 1e9);
  }
  state.counters["ns"] = median(times);
  state.counters["memcpy_ns"] = median(copyTimes);
  state.counters["ratio"] = median(ratios);
}

/// How such a benchmark is registered: one iteration is one turn.
inline void inTurns(benchmark::internal::Benchmark* bench) {
  bench->UseManualTime()->Iterations(500)->Unit(benchmark::kMicrosecond);
}

}  // namespace korvane
