#include "generators/image/ImageKind.h"

#include "generators/image/ImageCode.h"
#include "generators/image/MxImageForm.h"
#include "generators/kit/StepCurves.h"
#include "platform/Numbers.h"

namespace korvane {
namespace {

const std::vector<EffectField>& imageFields() {
  static const std::vector<EffectField> all = {
      kept::imageStretch,
      kept::imageTile,
      kept::direction,
      kept::speed,
      {"imageCount",
       ItemList{&Effect::imageCount, {kept::imageNames, kept::itemTimes, kept::imageFiles}, false}},
      kept::amount};
  return all;
}

void loadFirstImage(Engine& engine, Deck& deck, StartCause cause) {
  Effect& effect = deck.effect();
  if (loadImage(engine, deck, 0)) {
    placeImage(engine, deck);
  } else if (byTypeList(cause)) {
    engine.platform.messageBox("File not found ! Please edit effect !");
  }
  if (effect.imageCount > 1) deck.timer2.setInterval(roundToInt32(effect.itemTimes.at(0) * 1000));
}

void startImage(Engine& engine, Deck& deck, StartCause cause) {
  const bool selected = cause == StartCause::RowSelected;
  // The left deck sets its step interval before the image is loaded, the right one doesn't
  // (docs/kept.md, deck-image-speed).
  if (selected && !deck.isB()) setStepInterval(deck, kSlowCurve);
  if (deck.effect().imageCount > 0) loadFirstImage(engine, deck, cause);
  prepareImage(engine, deck);
  if (!selected) return;
  deck.imageIndex = 0;
  if (deck.effect().imageCount > 1) deck.timer2.enable();
}

}  // namespace

constinit const EffectKind kImageKind = {.name = "Image",
                                         .fields = imageFields,
                                         .defaults = nothing,
                                         .start = startImage,
                                         .tick = steadily<moveImage>,
                                         .sequenceTick = nextImage,
                                         .beat = nothing,
                                         .loaded = nothingLoaded,
                                         .gridChanged = anyGrid,
                                         .onEdit = OnEdit::CommittedFirst,
                                         .atCloseall = AtCloseall::Hidden,
                                         .dialog = kindOfDialog<MxImageForm>()};

}  // namespace korvane
