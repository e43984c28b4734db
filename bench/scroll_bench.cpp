// One whole tick of Color Change and Color Scroll: the picture, both previews, the mix and the
// output. Every tick changes what it paints, so the host is handed all that it can be.

#include "Stage.h"
#include "generators/colorchange/ColorChangeCode.h"
#include "generators/colorscroll/ColorScrollCode.h"
#include "platform/Numbers.h"

namespace korvane {
namespace {

constexpr Color kDark = rgb(10, 20, 30);
constexpr Color kBright = rgb(200, 100, 50);

int sideOf(const benchmark::State& state) { return static_cast<int>(state.range(0)); }

void setColors(Effect& effect) {
  effect.colorCount = 2;
  effect.colors = {kDark, kBright, 0};
  effect.itemTimes = {1, 1, 0};
  effect.itemWidths = {1, 1, 0};
  effect.speed = 50;
}

void colorScroll(benchmark::State& state) {
  Stage stage(sideOf(state), kColorScroll);
  Deck& deck = stage.engine.v.A;
  setColors(deck.effect());
  deck.effect().direction = toInt16(state.range(1));
  deck.colorIndex = 0;
  buildScrollStrip(stage.engine, deck);
  measure(state, stage, [](Engine& engine, Deck& deckA) { tickColorScroll(engine, deckA); });
}

// Mode 0 is the cut. The others turn back before their end, with the colours exchanged.
void colorChange(benchmark::State& state) {
  Stage stage(sideOf(state), kColorChange);
  Deck& deck = stage.engine.v.A;
  Effect& effect = deck.effect();
  setColors(effect);
  effect.fadeMode = toInt16(state.range(1));
  deck.colorIndex = 0;
  startColorChange(stage.engine, deck);
  colorChangeStep(stage.engine, deck);
  measure(state, stage, [&effect](Engine& engine, Deck& deckA) {
    if (effect.fadeMode == 0) return colorChangeStep(engine, deckA);
    if (deckA.step == deckA.steps) {
      std::swap(effect.color1, effect.color2);
      deckA.step = 0;
      if (!deckA.cellPending.empty()) deckA.cellPending.fill(true);
    }
    colorChangeTransition(engine, deckA);
  });
}

// The step that starts the costliest transition: a shuffle of all cells.
void startOfFill(benchmark::State& state) {
  Stage stage(sideOf(state), kColorChange);
  Deck& deck = stage.engine.v.A;
  setColors(deck.effect());
  deck.effect().fadeMode = 3;
  deck.colorIndex = 0;
  measure(state, stage, [](Engine& engine, Deck& deckA) { colorChangeStep(engine, deckA); });
}

BENCHMARK(colorScroll)
    ->ArgsProduct({{12, 50}, benchmark::CreateDenseRange(1, 12, 1)})
    ->Apply(inTurns);
BENCHMARK(colorChange)
    ->ArgsProduct({{12, 50}, benchmark::CreateDenseRange(0, 8, 1)})
    ->Apply(inTurns);
BENCHMARK(startOfFill)->Arg(12)->Arg(50)->Apply(inTurns);

}  // namespace
}  // namespace korvane

BENCHMARK_MAIN();
