// One whole tick of Fire, Fluid and Ticker: the cells, both previews, the mix and the output.

#include "Stage.h"
#include "generators/fireandwater/FireAndWaterCode.h"
#include "generators/ticker/TickerCode.h"

namespace korvane {
namespace {

int sideOf(const benchmark::State& state) { return static_cast<int>(state.range(0)); }

void fire(benchmark::State& state) {
  Stage stage(sideOf(state), kFire);
  Effect& effect = stage.engine.v.A.effect();
  effect.color1 = rgb(255, 255, 0);
  effect.color2 = rgb(255, 0, 0);
  effect.amount = 100;
  measure(state, stage, [&stage](Engine& engine, Deck& deck) {
    ++stage.platform.time;  // the random numbers start from the clock
    fireTick(engine, deck);
  });
}

// Every cell differs from its neighbour, so every cell is published.
void fluid(benchmark::State& state) {
  Stage stage(sideOf(state), kFluid);
  Effect& effect = stage.engine.v.A.effect();
  effect.color1 = rgb(10, 20, 30);
  effect.color2 = rgb(200, 200, 200);
  effect.amount = 100;
  effect.direction = static_cast<std::int16_t>(state.range(1));
  measure(state, stage, [&stage](Engine& engine, Deck& deck) {
    ++stage.platform.time;
    fluidTick(engine, deck);
  });
}

void ticker(benchmark::State& state) {
  Stage stage(sideOf(state), kTicker);
  Effect& effect = stage.engine.v.A.effect();
  effect.color1 = rgb(255, 255, 255);
  effect.tickerText = "Korvane - TharnDesk - ";
  effect.tickerFont = 5;
  effect.direction = static_cast<std::int16_t>(state.range(1));
  tickerBuild(stage.engine, stage.engine.v.A);
  measure(state, stage, [](Engine& engine, Deck& deck) { tickerTick(engine, deck); });
}

BENCHMARK(fire)->Arg(12)->Arg(50)->Apply(inTurns);
BENCHMARK(fluid)->ArgsProduct({{12, 50}, {1, 3, 5, 7}})->Apply(inTurns);
BENCHMARK(ticker)->ArgsProduct({{12, 50}, {1, 3, 5, 7}})->Apply(inTurns);

}  // namespace
}  // namespace korvane

BENCHMARK_MAIN();
