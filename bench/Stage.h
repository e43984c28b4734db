#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstring>
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

/// Runs `tick` of deck A under the benchmark and reports beside its time: `memcpy`, the time of
/// copying the frame in the same run, and `ratio`, the tick's time divided by it.
template <class Tick>
void measure(benchmark::State& state, Stage& stage, Tick tick) {
  using Clock = std::chrono::steady_clock;
  const Frame& frame = stage.engine.v.frameA;
  std::vector<Rgb> copy(frame.span());
  Clock::duration copying{};
  Clock::duration ticking{};
  constexpr int kCopies = 64;
  for (auto _ : state) {
    const auto start = Clock::now();
    tick(stage.engine, stage.engine.v.A);
    const auto middle = Clock::now();
    for (int i = 0; i < kCopies; ++i) {
      std::memcpy(copy.data(), frame.data(), frame.span() * sizeof(Rgb));
      benchmark::DoNotOptimize(copy.data());
      benchmark::ClobberMemory();
    }
    ticking += middle - start;
    copying += Clock::now() - middle;
    state.SetIterationTime(std::chrono::duration<double>(middle - start).count());
  }
  const double ratio =
      static_cast<double>(ticking.count()) * kCopies / static_cast<double>(copying.count());
  state.counters["memcpy_ns"] =
      static_cast<double>(copying.count()) / kCopies / static_cast<double>(state.iterations());
  state.counters["ratio"] = ratio;
  state.counters["passes"] = benchmark::Counter(static_cast<double>(stage.host.passes),
                                                benchmark::Counter::kAvgIterations);
  state.counters["channels"] = benchmark::Counter(static_cast<double>(stage.host.channels),
                                                  benchmark::Counter::kAvgIterations);
}

}  // namespace korvane
