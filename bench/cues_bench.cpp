// A step of a cue list: Go on a list of a thousand cues beside the same on a list of ten, with 256
// effects a deck. Target: no slower, "slowdown" below 1.5.

#include "BesideLoop.h"
#include "desk/cues/Rehearsal.h"
#include "desk/cues/ShowRun.h"

namespace korvane {
namespace {

constexpr int kEffects = 256;
constexpr int kShort = 10;
constexpr int kGos = 2000;

/// A stage with rows and nothing behind them.
class EmptyStage : public ShowStage {
 public:
  std::vector<Row> rows(ShowList) const override {
    std::vector<Row> all;
    for (std::int16_t slot = 0; slot < kEffects; ++slot)
      all.push_back({slot, "effect " + std::to_string(slot)});
    return all;
  }
  bool has(ShowList, std::int16_t slot) const override { return slot >= 0 && slot < kEffects; }
  std::int16_t selected(ShowList) const override { return 0; }
  void press(ShowList, std::int16_t) override {}
  bool standsAt(Side) const override { return false; }
  Side seen() const override { return Side::A; }
  void fadeTo(Side) override {}
  void cutTo(Side) override {}
  bool fading() const override { return false; }
  double fadeLeft() const override { return 0; }
  std::int64_t fadeLength(std::int16_t) const override { return 1000; }
  int master() const override { return 100; }
  void setMaster(int) override {}
};

struct Show {
  explicit Show(int cues) {
    run.list.loop = true;
    run.list.guard = 0;
    // Both lists name effects from all over the decks, as looking for one takes time.
    for (int i = 0; i < cues; ++i) {
      Cue cue{.name = "cue"};
      cue.row(ShowList::Left) = {static_cast<std::int16_t>(i * 97 % kEffects), "effect"};
      cue.row(ShowList::Right) = {static_cast<std::int16_t>(i * 59 % kEffects), "effect"};
      cue.end = Cue::End::Seconds;
      run.list.cues.push_back(cue);
    }
    run.cues.stop();
  }
  void go() { run.cues.go(); }

  EmptyStage empty;
  Rehearsal stage{empty};
  ShowRun run{stage.timers, stage};
};

void stepping(benchmark::State& state) {
  Show shortList(kShort), longList(static_cast<int>(state.range(0)));
  std::vector<double> ratios, times;
  while (state.KeepRunning()) {
    const auto stepShort = [&] { shortList.go(); };
    const auto stepLong = [&] { longList.go(); };
    const double little = nanosecondsEach(kGos, stepShort);
    const double much = nanosecondsEach(kGos, stepLong);
    times.push_back(much);
    ratios.push_back(much / little);
  }
  state.counters["ns_go"] = median(times);
  state.counters["slowdown"] = median(ratios);
}
BENCHMARK(stepping)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace korvane

BENCHMARK_MAIN();
