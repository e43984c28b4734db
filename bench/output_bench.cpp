// What a pass costs: mixing, sending and the preview of the mix, each beside a plain loop over the
// frame. scripts/run-benchmarks has the targets.

#include <utility>

#include "Stage.h"
#include "output/MatrixCode.h"

namespace korvane {
namespace {

int sideOf(const benchmark::State& state) { return static_cast<int>(state.range(0)); }

// Channels 1 to 7500 of which 512 are sent, or a grid that was never configured: all are sent.
enum Mapping { kRunning, kUnconfigured };

// Decks with a random picture each.
struct Show : Stage {
  explicit Show(int side, Mapping mapping = kRunning) : Stage(side, kColor) {
    if (mapping == kUnconfigured) v.channelMap.redim(side, side);
    for (int col = 0; col < side; ++col) {
      for (int row = 0; row < side; ++row) {
        v.frameA.at(col, row) = someCell();
        v.frameB.at(col, row) = someCell();
        v.fadeMap.at(col, row) = engine.random.next() < 0.5F ? 0.0F : 1.0F;
      }
    }
  }

  std::uint8_t someByte() { return static_cast<std::uint8_t>(engine.random.next() * 256); }
  Rgb someCell() { return {someByte(), someByte(), someByte()}; }

  Variablen& v = engine.v;
};

void mixing(benchmark::State& state, FadeType type, double position) {
  Show show(sideOf(state));
  show.v.outputActive = false;
  show.v.fadeTypeNow = type;
  show.engine.master.MFadeColor.setBackColor(rgb(200, 100, 50));
  measureBesideLoop(state, show.bytes(), [&] {
    mixFrame(show.engine, position);
    barrier(show.v.frameM.data());
  });
}

// Sends two pictures in turn that differ in every `nth` cell; 0: in none.
void sending(benchmark::State& state, Mapping mapping, int nth) {
  Show show(sideOf(state), mapping);
  show.v.frameM = show.v.frameA;
  Frame other = show.v.frameA;
  for (int cell = 0; nth != 0 && cell < sideOf(state) * sideOf(state); cell += nth) {
    for (std::uint8_t& byte : other.at(cell / sideOf(state), cell % sideOf(state))) byte ^= 1;
  }
  sendFrame(show.engine);
  measureBesideLoop(state, show.bytes(), [&] {
    std::swap(show.v.frameM, other);
    sendFrame(show.engine);
    barrier(show.v.frameSent.data());
  });
}

void drawingM(benchmark::State& state) {
  Show show(sideOf(state));
  show.v.frameM = show.v.frameA;
  measureBesideLoop(state, show.bytes(), [&] {
    drawMatrixM(show.engine);
    barrier(show.engine.master.picture.raster().data());
  });
}

// Mixes and sends a picture that stands still.
void wholePass(benchmark::State& state, Mapping mapping) {
  Show show(sideOf(state), mapping);
  measureBesideLoop(state, show.bytes(), [&] {
    mixFrame(show.engine, 0.3);
    barrier(show.v.frameSent.data());
  });
}

void atBothSizes(benchmark::internal::Benchmark* bench) { bench->Arg(12)->Arg(50)->Apply(inTurns); }

BENCHMARK_CAPTURE(mixing, CrossFade, kCrossFade, 0.3)->Apply(atBothSizes);
BENCHMARK_CAPTURE(mixing, CrossFadeAtDeckA, kCrossFade, 0.0)->Apply(atBothSizes);
BENCHMARK_CAPTURE(mixing, CrossFadeAtDeckB, kCrossFade, 1.0)->Apply(atBothSizes);
BENCHMARK_CAPTURE(mixing, BlackFade, kBlackFade, 0.3)->Apply(atBothSizes);
BENCHMARK_CAPTURE(mixing, ColorFade, kColorFade, 0.7)->Apply(atBothSizes);
BENCHMARK_CAPTURE(mixing, Add, kAdd, 0.3)->Apply(atBothSizes);
BENCHMARK_CAPTURE(mixing, CellWise, kRandom, 0.3)->Apply(atBothSizes);
BENCHMARK_CAPTURE(sending, NothingChanged, kRunning, 0)->Apply(atBothSizes);
BENCHMARK_CAPTURE(sending, NothingChangedUnconfigured, kUnconfigured, 0)->Apply(atBothSizes);
BENCHMARK_CAPTURE(sending, AThirdChanged, kRunning, 3)->Apply(atBothSizes);
BENCHMARK_CAPTURE(sending, AThirdChangedUnconfigured, kUnconfigured, 3)->Apply(atBothSizes);
BENCHMARK_CAPTURE(sending, AllChanged, kRunning, 1)->Apply(atBothSizes);
BENCHMARK_CAPTURE(sending, AllChangedUnconfigured, kUnconfigured, 1)->Apply(atBothSizes);
BENCHMARK(drawingM)->Apply(atBothSizes);
BENCHMARK_CAPTURE(wholePass, NothingChanged, kRunning)->Apply(atBothSizes);
BENCHMARK_CAPTURE(wholePass, NothingChangedUnconfigured, kUnconfigured)->Apply(atBothSizes);

}  // namespace
}  // namespace korvane

BENCHMARK_MAIN();
