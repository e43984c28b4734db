#include "playback/DeckPlayback.h"

#include "generators/colorchange/ColorChangeCode.h"
#include "generators/colorscroll/ColorScrollCode.h"
#include "generators/fireandwater/FireAndWaterCode.h"
#include "generators/image/ImageCode.h"
#include "generators/ticker/TickerCode.h"

namespace korvane {
namespace {

using Tick = void (*)(Engine&, Deck&);

// The step of a type that runs on by itself; nullptr for one that doesn't.
Tick steadyTick(std::int16_t type) {
  switch (type) {
    case kImage:
      return moveImage;
    case kColorScroll:
      return tickColorScroll;
    case kFire:
      return fireTick;
    case kFluid:
      return fluidTick;
    case kTicker:
      return tickerTick;
    default:
      return nullptr;
  }
}

}  // namespace

void timer1_Timer(Engine& engine, Deck& deck) {
  deck.timer1.disable();
  const std::int16_t type = deck.effect().type;
  if (type == kColorChange) return colorChangeStep(engine, deck);  // arms its timer itself
  const Tick tick = steadyTick(type);
  if (tick == nullptr) return;
  tick(engine, deck);
  deck.timer1.enable();
}

void timer2_Timer(Engine& engine, Deck& deck) {
  deck.timer2.disable();
  switch (deck.effect().type) {
    case kImage:
      return nextImage(engine, deck);
    case kColorChange:
      return colorChangeTransition(engine, deck);
    default:
      return;
  }
}

void stopDeck(Deck& deck) {
  deck.timer1.disable();
  deck.timer2.disable();
}

}  // namespace korvane
