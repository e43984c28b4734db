#pragma once

#include <benchmark/benchmark.h>

#include <cstring>
#include <ctime>
#include <vector>

#include "output/Preview.h"
#include "persistence/MatrixDefinition.h"
#include "platform/HeadlessPlatform.h"
#include "state/Engine.h"

namespace korvane {

/// A desk that only counts what it is handed.
class CountingHost : public Host {
 public:
  std::int32_t ChannelMAXCHANNELS() override { return 512; }
  std::string ProjectName() override { return {}; }
  std::string ProjectBaseFilename() override { return {}; }
  void UserInteraction() override { ++passes; }
  void SetChannel(std::int32_t, std::int32_t, bool) override { ++channels; }

  std::int64_t passes = 0;
  std::int64_t channels = 0;
};

/// A square grid with output on, channels counted up over as many universes as it needs, both decks
/// of one type, the fader in the middle, and all previews fitted.
struct Stage {
  Stage(int side, std::int16_t type) : engine(platform) {
    Variablen& v = engine.v;
    v.host = &host;
    v.matrixCols = v.matrixRows = static_cast<std::int16_t>(side);
    dimensionMatrix(engine);
    std::int32_t channel = 1;
    for (int col = 0; col < side; ++col) {
      for (int row = 0; row < side; ++row) {
        for (int component = 0; component < 3; ++component)
          v.channelMap.set(col, row, component, channel++);
      }
    }
    v.outputActive = true;
    for (PictureBox* box : {&v.A.picture, &v.B.picture, &engine.master.picture})
      set_matrix_values(engine, *box);
    for (Deck* deck : {&v.A, &v.B}) {
      deck->efx.resize(1);
      deck->effect().type = type;
    }
  }

  HeadlessPlatform platform;
  CountingHost host;
  Engine engine;
};

/// Processor time of a piece of work, in nanoseconds.
template <class Work>
double processorTime(Work work) {
  const std::clock_t start = std::clock();
  work();
  return static_cast<double>(std::clock() - start) * 1e9 / CLOCKS_PER_SEC;
}

/// Processor time of copying a frame, in nanoseconds.
inline double copyTime(const Frame& frame) {
  constexpr int kCopies = 200'000;
  std::vector<Rgb> copy(frame.span());
  return processorTime([&] {
           for (int i = 0; i < kCopies; ++i) {
             std::memcpy(copy.data(), frame.data(), frame.span() * sizeof(Rgb));
             benchmark::DoNotOptimize(copy.data());
             benchmark::ClobberMemory();
           }
         }) /
         kCopies;
}

/// Runs `tick` on deck A and reports beside its time: `memcpy_ns`, the time of copying the frame in
/// the same run, `ratio`, the tick's time in such copies, and what the desk was handed per tick.
template <class Tick>
void measure(benchmark::State& state, Stage& stage, Tick tick) {
  const double ticking = processorTime([&] {
    for (auto _ : state) tick(stage.engine, stage.engine.v.A);
  });
  const double copying = copyTime(stage.engine.v.frameA);
  const auto ticks = static_cast<double>(state.iterations());
  state.counters["memcpy_ns"] = copying;
  state.counters["ratio"] = ticking / ticks / copying;
  state.counters["passes"] = static_cast<double>(stage.host.passes) / ticks;
  state.counters["channels"] = static_cast<double>(stage.host.channels) / ticks;
}

}  // namespace korvane
