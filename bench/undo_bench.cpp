// A step of undo on a show with 256 effects in each deck: noting that an event changed one slider,
// and taking it back. Pictures: all effects are Paint on the largest grid, the most there is to
// compare.

#include "BesideLoop.h"
#include "desk/undo/ShowHistory.h"
#include "desk/whole/Desk.h"
#include "platform/Events.h"
#include "platform/HeadlessPlatform.h"

namespace korvane {
namespace {

constexpr std::size_t kEffects = 256;
constexpr std::int16_t kSide = 50;
constexpr std::size_t kLoopBytes = std::size_t{3} * kSide * kSide;

class LongShow {
 public:
  explicit LongShow(std::int16_t type) {
    desk.show();
    desk.form.tool.click();
    desk.form.configure.click();
    desk.session.plugin.matrixConf.ncol.choose(kSide - 1);
    desk.session.plugin.matrixConf.nrow.choose(kSide - 1);
    for (DeckPanel* panel :
         {&desk.session.plugin.matrixForm.panelA, &desk.session.plugin.matrixForm.panelB}) {
      for (std::size_t i = 1; i < kEffects; ++i) panel->add.click();
    }
    for (Deck* deck : {&desk.engine().v.A, &desk.engine().v.B}) {
      for (std::size_t i = 0; i < kEffects; ++i) {
        deck->efx[i].type = type;
        if (type == kPaint) deck->efx[i].paintPixels.redim(kSide, kSide);
      }
    }
    history.begin();
  }
  // A slider's pull of the last effect of the right deck, which is not on.
  void change() {
    Effect& effect = desk.engine().v.B.efx[kEffects - 1];
    effect.speed = static_cast<std::int16_t>(1 + effect.speed % 90);
  }

  HeadlessPlatform machine;
  LampFeed feed{"korvane-bench"};
  Desk desk{machine, feed, {"/nowhere/show"}};
  ShowHistory& history = desk.history;
};

void stepOfUndo(benchmark::State& state, std::int16_t type) {
  LongShow show(type);
  measureBesideLoop(state, kLoopBytes, [&show] {
    show.change();
    show.history.note();
    show.history.undo();
  });
}
void nothingChanged(benchmark::State& state, std::int16_t type) {
  LongShow show(type);
  measureBesideLoop(state, kLoopBytes, [&show] { show.history.note(); });
}

// All that the desk does after an event of a person that changes nothing.
void eventAtTheDesk(benchmark::State& state, std::int16_t type) {
  LongShow show(type);
  measureBesideLoop(state, kLoopBytes, [&show] { show.desk.refresh(); });
}

BENCHMARK_CAPTURE(stepOfUndo, fire, kFire)->Apply(inTurns);
BENCHMARK_CAPTURE(stepOfUndo, paint, kPaint)->Apply(inTurns);
BENCHMARK_CAPTURE(nothingChanged, paint, kPaint)->Apply(inTurns);
BENCHMARK_CAPTURE(eventAtTheDesk, paint, kPaint)->Apply(inTurns);

}  // namespace
}  // namespace korvane

BENCHMARK_MAIN();
