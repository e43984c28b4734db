#include "generators/colorchange/ColorChangeKind.h"

#include "generators/colorchange/ColorChangeCode.h"
#include "generators/colorchange/MxColorChange.h"

namespace korvane {
namespace {

const std::vector<EffectField>& colorChangeFields() {
  static const std::vector<EffectField> all = {
      {"colorCount", ItemList{&Effect::colorCount, {kept::colors, kept::itemTimes}, true}},
      kept::fadeMode,
      kept::beatControl,
      kept::speed,
      kept::amount,
      kept::direction};
  return all;
}

// The first store is overwritten by the second; 30 is the default that stands.
void colorChangeDefaults(Engine&, Deck& deck) {
  deck.effect().speed = 50;
  deck.effect().speed = 30;
}

void startFirstColor(Engine& engine, Deck& deck, StartCause) {
  deck.colorIndex = 0;
  startColorChange(engine, deck);
}

void keepFadeMode(Deck& deck, const Effect& effect) { deck.savedFadeMode = effect.fadeMode; }

}  // namespace

// A step turns its timer on itself, unless a transition takes over.
constinit const EffectKind kColorChangeKind = {.name = "Color Change",
                                               .fields = colorChangeFields,
                                               .defaults = colorChangeDefaults,
                                               .start = startFirstColor,
                                               .tick = colorChangeStep,
                                               .sequenceTick = colorChangeTransition,
                                               .beat = colorChangeBeat,
                                               .loaded = keepFadeMode,
                                               .gridChanged = anyGrid,
                                               .onEdit = OnEdit::CommittedFirst,
                                               .atCloseall = AtCloseall::Hidden,
                                               .dialog = kindOfDialog<MxColorChange>()};

}  // namespace korvane
