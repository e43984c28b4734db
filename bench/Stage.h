#pragma once

#include <benchmark/benchmark.h>

#include "BesideLoop.h"
#include "output/Preview.h"
#include "persistence/MatrixDefinition.h"
#include "platform/HeadlessPlatform.h"
#include "state/Engine.h"

namespace korvane {

/// A desk that only counts what it is handed.
class CountingHost : public Host {
 public:
  std::int32_t ChannelMAXCHANNELS() override { return kUniverseChannels; }
  std::string ProjectName() override { return {}; }
  std::string ProjectBaseFilename() override { return {}; }
  void UserInteraction() override { ++passes; }
  void SetChannel(std::int32_t, std::int32_t, bool) override { ++channels; }

  std::int64_t passes = 0;
  std::int64_t channels = 0;
};

/// Gives the grid a square size, channels counted up over as many universes as it needs, and
/// previews fitted to it and drawn, as those of a window are.
inline void wire(Engine& engine, int side) {
  Variablen& v = engine.v;
  v.matrixCols = v.matrixRows = static_cast<std::int16_t>(side);
  dimensionMatrix(engine);
  v.matrix.countChannelsUp(1, Matrix::Order::ColumnByColumn);
  for (PictureBox* box : {&v.A.picture, &v.B.picture, &engine.master.picture})
    set_matrix_values(engine, *box);
  for (Deck* deck : {&v.A, &v.B}) drawMatrix(engine, *deck);
  drawMatrixM(engine);
}

/// A square grid with output on, both decks of one type, and the fader in the middle.
struct Stage {
  Stage(int side, std::int16_t type) : engine(platform) {
    Variablen& v = engine.v;
    v.host = &host;
    wire(engine, side);
    v.outputActive = true;
    for (Deck* deck : {&v.A, &v.B}) {
      deck->efx.resize(1);
      deck->effect().type = type;
    }
  }

  /// Of the three components of all cells.
  std::size_t bytes() const {
    return static_cast<std::size_t>(engine.v.matrixCols) *
           static_cast<std::size_t>(engine.v.matrixRows) * 3;
  }

  HeadlessPlatform platform;
  CountingHost host;
  Engine engine;
};

/// Runs `tick` on deck A beside a plain loop over the frame, and reports what the desk was handed
/// per tick, too. The benchmark must be registered with inTurns.
template <class Tick>
void measure(benchmark::State& state, Stage& stage, Tick tick) {
  double ticks = 0;
  measureBesideLoop(state, stage.bytes(), [&] {
    tick(stage.engine, stage.engine.v.A);
    ++ticks;
  });
  state.counters["passes"] = static_cast<double>(stage.host.passes) / ticks;
  state.counters["channels"] = static_cast<double>(stage.host.channels) / ticks;
}

}  // namespace korvane
