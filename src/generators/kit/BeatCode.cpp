#include "generators/kit/BeatCode.h"

#include "generators/color/ColorCode.h"
#include "generators/colorscroll/ColorScrollCode.h"
#include "generators/ticker/TickerCode.h"
#include "platform/Numbers.h"

namespace korvane {
namespace {

constexpr std::int32_t kBeatLockOut = 200;  // milliseconds after an accepted beat

Color colorNow(const Deck& deck, const Effect& effect) {
  return effect.colors.at(static_cast<std::size_t>(deck.colorIndex));
}

void nextColor(Engine& engine, Deck& deck) {
  Effect& effect = deck.effect();
  if (effect.colorCount <= 1) return;
  effect.color2 = colorNow(deck, effect);
  deck.colorIndex =
      deck.colorIndex < effect.colorCount - 1 ? add16(deck.colorIndex, 1) : std::int16_t{0};
  deck.timer2.enable();
  effect.color1 = colorNow(deck, effect);
  renderColor(engine, deck);
}

}  // namespace

// The sequence timer does no work here: while it runs, beats are dropped.
void beatStep(Engine& engine, Deck& deck) {
  if (deck.timer2.enabled()) return;
  switch (deck.effect().type) {
    case kColorChange:
      return nextColor(engine, deck);
    case kColorScroll:
      deck.timer2.enable();
      return tickColorScroll(engine, deck);
    case kTicker:
      deck.timer2.enable();
      return tickerTick(engine, deck);
    default:
      return;
  }
}

void followBeat(Engine& engine, Deck& deck, bool on) {
  if (on) {
    deck.timer1.disable();
    deck.timer2.disable();
    deck.timer2.setInterval(kBeatLockOut);
  }
  deck.effect().beatControl = on ? 1 : 0;
  engine.v.beatControlSeen = on;
  deck.beatOn = on;
}

}  // namespace korvane
