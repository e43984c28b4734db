#include "playback/DeckPlayback.h"

#include "generators/Effects.h"

namespace korvane {

void timer1_Timer(Engine& engine, Deck& deck) {
  deck.timer1.disable();
  if (const EffectKind* kind = kindOf(deck.effect().type)) kind->tick(engine, deck);
}

void timer2_Timer(Engine& engine, Deck& deck) {
  deck.timer2.disable();
  if (const EffectKind* kind = kindOf(deck.effect().type)) kind->sequenceTick(engine, deck);
}

void stopDeck(Deck& deck) {
  deck.timer1.disable();
  deck.timer2.disable();
}

}  // namespace korvane
