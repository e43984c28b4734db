#include "generators/kit/BeatCode.h"

#include "generators/Effects.h"

namespace korvane {
namespace {

constexpr std::int32_t kBeatLockOut = 200;  // milliseconds after an accepted beat

}  // namespace

// The sequence timer does no work here: while it runs, beats are dropped.
void beatStep(Engine& engine, Deck& deck) {
  if (deck.timer2.enabled()) return;
  if (const EffectKind* kind = kindOf(deck.effect().type)) kind->beat(engine, deck);
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
