#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <ctime>
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

/// The plain loop that results stand beside: a checksum of bytes, one after the other. Each step
/// needs the one before, so no compiler and no width of vectors makes it faster: it tells the speed
/// of the processor and nothing else.
inline void plainLoop(const std::vector<std::uint8_t>& bytes) {
  std::uint32_t sum = 0;
  for (const std::uint8_t byte : bytes) sum = sum * 31 + byte;
  barrier(&sum);
}

/// Measures `work` in turns with the plain loop over `bytes` bytes, so that noise of the machine
/// hits both. Reports the medians of all turns: `ns` of one call, `loop_ns`, and `ratio`, the one
/// in the other. The benchmark must be registered with inTurns.
template <class Work>
void measureBesideLoop(benchmark::State& state, std::size_t bytes, Work work) {
  constexpr int kLoops = 4;
  constexpr double kTurn = 100'000;  // nanoseconds of work in one turn
  const std::vector<std::uint8_t> frame(bytes, 1);
  auto loop = [&] { plainLoop(frame); };
  const int calls = std::max(1, static_cast<int>(kTurn / nanosecondsEach(20, work)));
  std::vector<double> times;
  std::vector<double> loopTimes;
  std::vector<double> ratios;
  for ([[maybe_unused]] auto turn : state) {
    loopTimes.push_back(nanosecondsEach(kLoops, loop));
    times.push_back(nanosecondsEach(calls, work));
    ratios.push_back(times.back() / loopTimes.back());
    state.SetIterationTime(times.back() / 1e9);
  }
  state.counters["ns"] = median(times);
  state.counters["loop_ns"] = median(loopTimes);
  state.counters["ratio"] = median(ratios);
}

/// Measures a whole program at work: `work` plays a while and answers how many seconds of show that
/// were. Reports the share of a core that it took, in percent: the processor's time, all threads,
/// for a second of show is long enough to be interrupted. Beside it stands the plain loop over the
/// frame of 50 x 50.
template <class Work>
void measureShare(benchmark::State& state, Work work) {
  const std::vector<std::uint8_t> frame(7500, 1);
  auto loop = [&] { plainLoop(frame); };
  std::vector<double> shares;
  std::vector<double> loopTimes;
  for ([[maybe_unused]] auto turn : state) {
    loopTimes.push_back(nanosecondsEach(100, loop));
    const std::clock_t start = std::clock();
    const double seconds = work();
    const double taken = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    shares.push_back(taken / seconds * 100);
    state.SetIterationTime(taken);
  }
  state.counters["percent"] = median(shares);
  state.counters["loop_ns"] = median(loopTimes);
}

/// How such a benchmark is registered: one iteration is one turn.
inline void inTurns(benchmark::internal::Benchmark* bench) {
  bench->UseManualTime()->Iterations(500)->Unit(benchmark::kMicrosecond);
}

}  // namespace korvane
