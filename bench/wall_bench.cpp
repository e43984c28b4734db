// What lies between the mixed picture and the outputs, each beside a plain loop over the frame.
// Targets at 50 x 50, release build: a picture of all universes within 15 us,
// and its levels and a look that smooths within 40 us.

#include "Stage.h"
#include "desk/wall/OutputLook.h"

namespace korvane {
namespace {

// A grid of this side with its channels counted up, and a picture on it.
struct Wall : Stage {
  explicit Wall(benchmark::State& state) : Stage(static_cast<int>(state.range(0)), kColor) {
    for (std::size_t i = 0; i < engine.v.frameM.span(); ++i) {
      for (std::uint8_t& byte : engine.v.frameM.data()[i])
        byte = static_cast<std::uint8_t>(engine.random.next() * 256);
    }
  }
  Patch patch{engine.v.channelMap};
};

void taking(benchmark::State& state) {
  Wall wall(state);
  measureBesideLoop(state, wall.bytes(), [&] {
    const WallPicture picture = wall.patch.take(wall.engine.v.frameM);
    barrier(&picture);
  });
}

void looking(benchmark::State& state) {
  Wall wall(state);
  OutputStage stage({.gamma = 2.2, .smooth = true, .balance = {100, 90, 80}});
  const LevelledPicture levelled{wall.patch.take(wall.engine.v.frameM), 80};
  measureBesideLoop(state, wall.bytes(), [&] {
    const WallPicture picture = stage.pass(levelled);
    barrier(&picture);
  });
}

void changingTheLook(benchmark::State& state) {
  Wall wall(state);
  OutputStage stage({.gamma = 2.2});
  LevelledPicture levelled{wall.patch.take(wall.engine.v.frameM), 80};
  measureBesideLoop(state, wall.bytes(), [&] {
    levelled.master = levelled.master % 100 + 1;
    const WallPicture picture = stage.pass(levelled);
    barrier(&picture);
  });
}

void comparingTheMap(benchmark::State& state) {
  Wall wall(state);
  measureBesideLoop(state, wall.bytes(), [&] {
    const bool same = wall.patch.madeFrom(wall.engine.v.channelMap);
    barrier(&same);
  });
}

void making(benchmark::State& state) {
  Wall wall(state);
  measureBesideLoop(state, wall.bytes(), [&] {
    const Patch patch(wall.engine.v.channelMap);
    barrier(&patch);
  });
}

void atBothSizes(benchmark::internal::Benchmark* bench) { bench->Arg(12)->Arg(50)->Apply(inTurns); }

BENCHMARK(taking)->Apply(atBothSizes);
BENCHMARK(looking)->Apply(atBothSizes);
BENCHMARK(changingTheLook)->Apply(atBothSizes);
BENCHMARK(comparingTheMap)->Apply(atBothSizes);
BENCHMARK(making)->Apply(atBothSizes);

}  // namespace
}  // namespace korvane

BENCHMARK_MAIN();
