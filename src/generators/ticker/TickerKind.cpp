#include "generators/ticker/TickerKind.h"

#include "generators/color/ColorCode.h"
#include "generators/kit/StepCurves.h"
#include "generators/ticker/MxTickerForm.h"
#include "generators/ticker/TickerCode.h"
#include "output/Preview.h"

namespace korvane {
namespace {

const std::vector<EffectField>& tickerFields() {
  static const std::vector<EffectField> all = {
      kept::color1,       kept::color2,      kept::speed,       kept::amount,
      kept::tickerText,   kept::tickerFont,  kept::direction,   kept::tickerBackward,
      kept::tickerMirror, kept::beatControl, kept::tickerLetter};
  return all;
}

void tickerDefaults(Engine& engine, Deck& deck) {
  Effect& effect = deck.effect();
  effect.color1 = engine.v.colorWhite;
  effect.color2 = engine.v.colorBlack;
  effect.tickerFont = 5;
  effect.tickerText = "Korvane - TharnDesk - ";
  effect.direction = 3;
  effect.speed = 75;
  effect.beatControl = 0;
  effect.tickerBackward = 0;
  effect.tickerMirror = 0;
  // Only the left deck leaves letter mode here; the right one keeps what the record held
  // (docs/kept.md, deck-letters).
  if (!deck.isB()) effect.tickerLetter = 0;
}

// The step timer runs even for a beat-driven text; the beats step it as well.
void startTicker(Engine& engine, Deck& deck, StartCause cause) {
  const Effect& effect = deck.effect();
  deck.beatOn = effect.beatControl != 0;
  if (byTypeList(cause)) {
    if (cause == StartCause::TypeChanged) deck.step = 0;
    fillFrame(engine, deck, colorParts(effect.color2));
    publishDeckFrame(engine, deck);
    tickerBuild(engine, deck);
    tickerTick(engine, deck);
  } else {
    tickerPlace(engine, deck);
    tickerBuild(engine, deck);
  }
  runStepTimer(deck, kFastCurve);
}

}  // namespace

constinit const EffectKind kTickerKind = {.name = "Ticker",
                                          .fields = tickerFields,
                                          .defaults = tickerDefaults,
                                          .start = startTicker,
                                          .tick = steadily<tickerTick>,
                                          .sequenceTick = nothing,
                                          .beat = onBeat<tickerTick>,
                                          .loaded = nothingLoaded,
                                          .gridChanged = anyGrid,
                                          .onEdit = OnEdit::CommittedFirst,
                                          .atCloseall = AtCloseall::StaysOpen,
                                          .dialog = kindOfDialog<MxTickerForm>()};

}  // namespace korvane
