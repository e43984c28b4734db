// The films of the rows' small pictures, on the largest grid: how long the longest takes of the
// slices in which a film is made. So long the window waits at most.

#include <ctime>

#include "BesideLoop.h"
#include "desk/whole/FilmStudio.h"
#include "platform/HeadlessPlatform.h"

namespace korvane {
namespace {

constexpr std::int16_t kSide = 50;
constexpr std::int16_t kCellByCell = 2;  // a transition of Color Change

Effect fastest(std::int16_t type) {
  Effect effect;
  effect.type = type;
  effect.color1 = rgb(255, 200, 0);
  effect.color2 = rgb(255, 0, 0);
  effect.speed = effect.amount = 100;
  effect.direction = 7;
  effect.fadeMode = kCellByCell;
  effect.colors = {rgb(255, 0, 0), rgb(0, 255, 0), rgb(0, 0, 255)};
  effect.itemTimes = {0.1, 0.1, 0.1};
  effect.itemWidths = {5, 5, 5};
  effect.colorCount = 3;
  effect.tickerText = "Korvane";
  effect.tickerFont = 5;
  return effect;
}

// Nanoseconds of the processor's time: what else runs on the machine is no fault of a slice.
template <class Work>
double processorTime(Work work) {
  const std::clock_t start = std::clock();
  work();
  return static_cast<double>(std::clock() - start) * (1e9 / CLOCKS_PER_SEC);
}

void longestSlice(benchmark::State& state, std::int16_t type) {
  HeadlessPlatform machine;
  Plugin show(machine);
  show.engine.v.matrix.cols = show.engine.v.matrix.rows = kSide;
  FilmStudio studio(machine);
  const Effect effect = fastest(type);
  const std::vector<std::uint8_t> frame(std::size_t{3} * kSide * kSide, 1);
  std::vector<double> longest, loops, ratios, slices;
  for ([[maybe_unused]] auto turn : state) {
    auto loop = [&frame] { plainLoop(frame); };
    loops.push_back(nanosecondsEach(100, loop));
    longest.push_back(processorTime([&] { studio.begin(show.engine.v, Side::A, effect); }));
    slices.push_back(1);
    for (bool done = false; !done; ++slices.back())
      longest.back() = std::max(longest.back(), processorTime([&] { done = studio.goOn(); }));
    if (studio.take().size() != FilmStudio::kLength) state.SkipWithError("no film");
    ratios.push_back(longest.back() / loops.back());
    state.SetIterationTime(longest.back() / 1e9);
  }
  state.counters["ns"] = median(longest);
  state.counters["loop_ns"] = median(loops);
  state.counters["ratio"] = median(ratios);
  state.counters["slices"] = median(slices);
}

BENCHMARK_CAPTURE(longestSlice, fire, kFire)->Apply(inTurns);
BENCHMARK_CAPTURE(longestSlice, fluid, kFluid)->Apply(inTurns);
BENCHMARK_CAPTURE(longestSlice, colorChange, kColorChange)->Apply(inTurns);
BENCHMARK_CAPTURE(longestSlice, colorScroll, kColorScroll)->Apply(inTurns);
BENCHMARK_CAPTURE(longestSlice, ticker, kTicker)->Apply(inTurns);

}  // namespace
}  // namespace korvane

BENCHMARK_MAIN();
