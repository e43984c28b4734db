#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace korvane {

/// Keeps the compiler from dropping or moving what was done to memory before.
inline void barrier(const void* touched) { asm volatile("" : : "r,m"(touched) : "memory"); }

/// Seconds that one call of `work` takes, over a batch of calls.
template <class Work>
double secondsEach(int calls, Work& work) {
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < calls; ++i) work();
  const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
  return passed.count() / calls;
}

/// Median of the numbers; they get another order.
inline double median(std::vector<double>& numbers) {
  const auto middle = numbers.begin() + static_cast<std::ptrdiff_t>(numbers.size() / 2);
  std::nth_element(numbers.begin(), middle, numbers.end());
  return *middle;
}

/// Measures `work` in turns with a memcpy of `bytes` bytes, so that noise of the machine hits both.
/// Reports, as medians of all turns: `us`, microseconds of one call, and `memcpys`, how many times
/// as long as the memcpy it takes.
template <class Work>
void measureBesideMemcpy(benchmark::State& state, std::size_t bytes, Work work) {
  constexpr int kCopies = 400;
  constexpr double kTurn = 100e-6;  // seconds of work in one turn
  std::vector<std::uint8_t> from(bytes, 1);
  std::vector<std::uint8_t> to(bytes);
  auto copy = [&] {
    std::memcpy(to.data(), from.data(), bytes);
    barrier(to.data());
  };
  secondsEach(kCopies, copy);
  secondsEach(20, work);  // both are warm now
  const int calls = std::max(1, static_cast<int>(kTurn / secondsEach(20, work)));
  std::vector<double> times;
  std::vector<double> ratios;
  for ([[maybe_unused]] auto turn : state) {
    const double copying = secondsEach(kCopies, copy);
    const double working = secondsEach(calls, work);
    state.SetIterationTime(working);
    times.push_back(working * 1e6);
    ratios.push_back(working / copying);
  }
  state.counters["us"] = median(times);
  state.counters["memcpys"] = median(ratios);
}

}  // namespace korvane
