#include "state/EffectFields.h"

#include <array>
#include <cstddef>

namespace korvane {
namespace {

using E = Effect;

const EffectField color1{"color1", &E::color1};
const EffectField color2{"color2", &E::color2};
const EffectField direction{"direction", &E::direction};
const EffectField paintPixels{"paintPixels", &E::paintPixels};
const EffectField imageStretch{"imageStretch", &E::imageStretch};
const EffectField imageTile{"imageTile", &E::imageTile};
const EffectField speed{"speed", &E::speed};
const EffectField amount{"amount", &E::amount};
const EffectField fadeMode{"fadeMode", &E::fadeMode};
const EffectField beatControl{"beatControl", &E::beatControl};
const EffectField scrollFadeMode{"scrollFadeMode", &E::scrollFadeMode};
const EffectField tickerText{"tickerText", &E::tickerText};
const EffectField tickerFont{"tickerFont", &E::tickerFont};
const EffectField tickerBackward{"tickerBackward", &E::tickerBackward};
const EffectField tickerMirror{"tickerMirror", &E::tickerMirror};
const EffectField tickerLetter{"tickerLetter", &E::tickerLetter};

const ItemColumn imageNames{"imageNames", &E::imageNames};
const ItemColumn imageFiles{"imageFiles", &E::imageFiles};
const ItemColumn itemTimes{"itemTimes", &E::itemTimes};
const ItemColumn itemWidths{"itemWidths", &E::itemWidths};
const ItemColumn colors{"colors", &E::colors};

const ItemList imageList{&E::imageCount, {imageNames, itemTimes, imageFiles}, false};
const ItemList timedList{&E::colorCount, {colors, itemTimes}, true};
const ItemList wideList{&E::colorCount, {colors, itemWidths}, true};

const EffectField images{"imageCount", imageList};
const EffectField timedColors{"colorCount", timedList};
const EffectField wideColors{"colorCount", wideList};

// One row per type, in the order of their numbers.
const std::array<std::vector<EffectField>, kEffectTypes> kFields = {{
    {color1},
    {color1, color2, direction},
    {paintPixels},
    {imageStretch, imageTile, direction, speed, images, amount},
    {timedColors, fadeMode, beatControl, speed, amount, direction},
    {wideColors, beatControl, scrollFadeMode, speed, direction},
    {color1, color2, speed, amount},
    {color1, color2, speed, amount, direction},
    {color1, color2, speed, amount, tickerText, tickerFont, direction, tickerBackward, tickerMirror,
     beatControl, tickerLetter},
}};

void fitList(Effect& effect, const ItemList& list) {
  const std::int16_t count = effect.*list.count;
  if (count <= 0) return;
  const std::size_t slots = static_cast<std::size_t>(count) + (list.emptyHasSlot ? 1 : 0);
  for (const ItemColumn& column : list.columns) {
    std::visit(
        [&](auto values) {
          if ((effect.*values).size() < slots) (effect.*values).resize(slots);
        },
        column.values);
  }
}

struct Copier {
  const Effect& from;
  Effect& to;

  template <class Value>
  void operator()(Value Effect::*field) const {
    to.*field = from.*field;
  }
  void operator()(const ItemList& list) const {
    (*this)(list.count);
    for (const ItemColumn& column : list.columns) std::visit(*this, column.values);
  }
};

}  // namespace

const std::vector<EffectField>& effectFields(std::int16_t type) {
  static const std::vector<EffectField> none;
  return type < 0 || type >= kEffectTypes ? none : kFields[static_cast<std::size_t>(type)];
}

void fitLists(Effect& effect) {
  for (const ItemList* list : {&imageList, &timedList, &wideList}) fitList(effect, *list);
}

void copyEffectFields(const Effect& from, Effect& to) {
  for (const EffectField& field : effectFields(from.type)) {
    std::visit(Copier{from, to}, field.value);
  }
  fitLists(to);
}

const std::vector<FadeField>& fadeFields() {
  using F = FadeEntry;
  static const std::vector<FadeField> fields = {
      {"type", &F::type}, {"name", &F::name}, {"time", &F::time}, {"color", &F::color}};
  return fields;
}

}  // namespace korvane
