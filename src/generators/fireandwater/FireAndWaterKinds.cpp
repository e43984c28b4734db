#include "generators/fireandwater/FireAndWaterKinds.h"

#include "generators/color/ColorCode.h"
#include "generators/fireandwater/FireAndWaterCode.h"
#include "generators/fireandwater/MxFire.h"
#include "generators/fireandwater/MxWater.h"
#include "generators/kit/StepCurves.h"
#include "output/Preview.h"

namespace korvane {
namespace {

const std::vector<EffectField>& fireFields() {
  static const std::vector<EffectField> all = {kept::color1, kept::color2, kept::speed,
                                               kept::amount};
  return all;
}

const std::vector<EffectField>& fluidFields() {
  static const std::vector<EffectField> all = {kept::color1, kept::color2, kept::speed,
                                               kept::amount, kept::direction};
  return all;
}

void fireDefaults(Engine& engine, Deck& deck) {
  Effect& effect = deck.effect();
  effect.color1 = engine.v.colorYellow;
  effect.color2 = engine.v.colorRed;
  effect.speed = 80;
  effect.amount = 30;
}

void fluidDefaults(Engine& engine, Deck& deck) {
  Effect& effect = deck.effect();
  effect.color1 = engine.v.colorBlue;
  effect.color2 = engine.v.colorWhite;
  effect.direction = 5;
  effect.speed = 80;
  effect.amount = 40;
}

void startFire(Engine& engine, Deck& deck, StartCause cause) {
  if (cause != StartCause::TypeChosen) {
    fillFrame(engine, deck, {0, 0, 0});
    drawMatrix(engine, deck);
    mixAndDraw(engine);
  }
  fireTick(engine, deck);
  runStepTimer(deck, kFastCurve);
}

// The picture is not cleared: what the deck showed flows out of the grid.
void startFluid(Engine& engine, Deck& deck, StartCause cause) {
  if (cause == StartCause::TypeChanged) deck.step = 0;
  fluidTick(engine, deck);
  runStepTimer(deck, kFastCurve);
}

}  // namespace

constinit const EffectKind kFireKind = {.name = "Fire",
                                        .fields = fireFields,
                                        .defaults = fireDefaults,
                                        .start = startFire,
                                        .tick = steadily<fireTick>,
                                        .sequenceTick = nothing,
                                        .beat = nothing,
                                        .loaded = nothingLoaded,
                                        .gridChanged = anyGrid,
                                        .onEdit = OnEdit::CommittedFirst,
                                        .atCloseall = AtCloseall::Hidden,
                                        .dialog = kindOfDialog<MxFire>()};

constinit const EffectKind kFluidKind = {.name = "Fluid",
                                         .fields = fluidFields,
                                         .defaults = fluidDefaults,
                                         .start = startFluid,
                                         .tick = steadily<fluidTick>,
                                         .sequenceTick = nothing,
                                         .beat = nothing,
                                         .loaded = nothingLoaded,
                                         .gridChanged = anyGrid,
                                         .onEdit = OnEdit::CommittedFirst,
                                         .atCloseall = AtCloseall::StaysOpen,
                                         .dialog = kindOfDialog<MxWater>()};

}  // namespace korvane
