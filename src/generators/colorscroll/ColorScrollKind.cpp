#include "generators/colorscroll/ColorScrollKind.h"

#include "generators/colorscroll/ColorScrollCode.h"
#include "generators/colorscroll/MxColorScroll.h"
#include "generators/kit/StepCurves.h"

namespace korvane {
namespace {

const std::vector<EffectField>& colorScrollFields() {
  static const std::vector<EffectField> all = {
      {"colorCount", ItemList{&Effect::colorCount, {kept::colors, kept::itemWidths}, true}},
      kept::beatControl,
      kept::scrollFadeMode,
      kept::speed,
      kept::direction};
  return all;
}

void startColorScroll(Engine& engine, Deck& deck, StartCause cause) {
  Effect& effect = deck.effect();
  // The right deck's type list leaves `beatOn` as it is where the left one clears it
  // (docs/kept.md, deck-scroll-beat).
  const bool clearsBeat = !(byTypeList(cause) && deck.isB());
  if (effect.colorCount < 2) {
    deck.timer1.disable();
    if (byTypeList(cause) && clearsBeat) deck.beatOn = false;
    engine.platform.messageBox("ColorScroll not configured ! Please edit effect !");
    return;
  }
  deck.colorIndex = 0;
  if (cause == StartCause::RowSelected) deck.step = 0;
  // Only the right deck's type list makes room for all widths (docs/kept.md, deck-scroll-room).
  if (byTypeList(cause) && deck.isB())
    effect.itemWidths.resize(static_cast<std::size_t>(effect.colorCount) + 1);
  buildScrollStrip(engine, deck);
  if (effect.beatControl != 0) {
    deck.beatOn = true;
    return;
  }
  if (clearsBeat) deck.beatOn = false;
  runStepTimer(deck, kSlowCurve);
}

}  // namespace

constinit const EffectKind kColorScrollKind = {.name = "Color Scroll",
                                               .fields = colorScrollFields,
                                               .defaults = nothing,
                                               .start = startColorScroll,
                                               .tick = steadily<tickColorScroll>,
                                               .sequenceTick = nothing,
                                               .beat = onBeat<tickColorScroll>,
                                               .loaded = nothingLoaded,
                                               .gridChanged = anyGrid,
                                               .onEdit = OnEdit::CommittedFirst,
                                               .atCloseall = AtCloseall::Hidden,
                                               .dialog = kindOfDialog<MxColorScroll>()};

}  // namespace korvane
