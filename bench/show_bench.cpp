// One second of a whole show: both decks step at full speed with the costliest effect, every step
// is mixed and handed to the desk, or a fade runs over it. Only the painting of windows on a screen
// is left out, which is the view's.

#include "FullSpeed.h"

namespace korvane {
namespace {

constexpr int kMillisecondsATurn = 1000;
constexpr int kNoFade = -1;

class Show {
 public:
  Show(int side, int fadeType) : fadeType_(fadeType) {
    plugin_.plugIn.ITharnPlugin_Init("", "", host_);
    engine_.desktop.show(plugin_.matrixForm);
    playAtFullSpeed(plugin_, side, kFluid);
    if (fadeType_ != kNoFade) engine_.master.fadeType.setIndex(fadeType_);
    engine_.v.fadeTime = 2.5;  // on 50 x 50 a step each millisecond, where a step is a cell
  }

  void turn() {
    constexpr int kPart = 50;
    for (int passed = 0; passed < kMillisecondsATurn; passed += kPart) {
      if (fadeType_ != kNoFade) fade();
      const auto run = [this](const std::function<void()>& tick) {
        ++platform_.time;  // the random numbers start from the clock
        tick();
      };
      engine_.timers.advanceTo(engine_.timers.now() + kPart, run);
    }
  }

 private:
  // One fade after the other, there and back; a running one takes no notice.
  void fade() {
    Master& master = engine_.master;
    (engine_.v.masterValue < 0.5 ? master.AutoFadeB : master.AutoFadeA).click();
  }

  const int fadeType_;
  HeadlessPlatform platform_;
  CountingHost host_;
  Plugin plugin_{platform_};
  Engine& engine_ = plugin_.engine;
};

// Reports the share of a core that the show takes, in percent: time of the processor, for a second
// of show is long enough to be interrupted.
void secondOfShow(benchmark::State& state) {
  Show show(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
  measureShare(state, [&show] {
    show.turn();
    return kMillisecondsATurn / 1e3;
  });
}

BENCHMARK(secondOfShow)
    ->ArgsProduct({{12, 50}, {kNoFade, kCrossFade, kRandom, kScrollLeft, kAdd}})
    ->UseManualTime()
    ->Iterations(200)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace korvane

BENCHMARK_MAIN();
