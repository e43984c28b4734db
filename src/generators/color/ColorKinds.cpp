#include "generators/color/ColorKinds.h"

#include "generators/color/ColorCode.h"
#include "generators/color/MxColorForm.h"
#include "generators/color/MxGradientForm.h"
#include "output/Preview.h"

namespace korvane {
namespace {

const std::vector<EffectField>& colorFields() {
  static const std::vector<EffectField> all = {kept::color1};
  return all;
}

const std::vector<EffectField>& gradientFields() {
  static const std::vector<EffectField> all = {kept::color1, kept::color2, kept::direction};
  return all;
}

// New Color effects are red on the left and blue on the right, so that a fresh show has two sides
// (docs/kept.md, deck-colours).
void colorDefaults(Engine& engine, Deck& deck) {
  deck.effect().color1 = deck.isB() ? engine.v.colorBlue : engine.v.colorRed;
}

void gradientDefaults(Engine& engine, Deck& deck) {
  Effect& effect = deck.effect();
  effect.color1 = engine.v.colorRed;
  effect.color2 = engine.v.colorYellow;
  effect.direction = 7;
}

void startColor(Engine& engine, Deck& deck, StartCause) {
  paintColor(engine, deck);
  publishBetweenSteps(engine, deck);
}

void startGradient(Engine& engine, Deck& deck, StartCause) {
  paintGradient(engine, deck);
  publishBetweenSteps(engine, deck);
}

}  // namespace

constinit const EffectKind kColorKind = {.name = "Color",
                                         .fields = colorFields,
                                         .defaults = colorDefaults,
                                         .start = startColor,
                                         .tick = nothing,
                                         .sequenceTick = nothing,
                                         .beat = nothing,
                                         .loaded = nothingLoaded,
                                         .gridChanged = anyGrid,
                                         .onEdit = OnEdit::CommittedFirst,
                                         .atCloseall = AtCloseall::Hidden,
                                         .dialog = kindOfDialog<MxColorForm>()};

constinit const EffectKind kGradientKind = {.name = "Gradient",
                                            .fields = gradientFields,
                                            .defaults = gradientDefaults,
                                            .start = startGradient,
                                            .tick = nothing,
                                            .sequenceTick = nothing,
                                            .beat = nothing,
                                            .loaded = nothingLoaded,
                                            .gridChanged = anyGrid,
                                            .onEdit = OnEdit::CommittedFirst,
                                            .atCloseall = AtCloseall::Hidden,
                                            .dialog = kindOfDialog<MxGradientForm>()};

}  // namespace korvane
