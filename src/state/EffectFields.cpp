#include "state/EffectFields.h"

#include <array>
#include <cstddef>

namespace korvane {
namespace {

// One row per type, in the order of their numbers.
const std::array<std::vector<EffectField>, kEffectTypes>& table() {
  using E = Effect;
  static const std::array<std::vector<EffectField>, kEffectTypes> rows = {{
      {&E::color1},
      {&E::color1, &E::color2, &E::direction},
      {FieldList::PaintPicture},
      {&E::imageStretch, &E::imageTile, &E::direction, &E::speed, FieldList::Images, &E::amount},
      {FieldList::ColorsWithTimes, &E::fadeMode, &E::beatControl, &E::speed, &E::amount,
       &E::direction},
      {FieldList::ColorsWithWidths, &E::beatControl, &E::scrollFadeMode, &E::speed, &E::direction},
      {&E::color1, &E::color2, &E::speed, &E::amount},
      {&E::color1, &E::color2, &E::speed, &E::amount, &E::direction},
      {&E::color1, &E::color2, &E::speed, &E::amount, &E::tickerText, &E::tickerFont, &E::direction,
       &E::tickerBackward, &E::tickerMirror, &E::beatControl, &E::tickerLetter},
  }};
  return rows;
}

struct Copier {
  const Effect& from;
  Effect& to;

  template <class Value>
  void operator()(Value Effect::*field) const {
    to.*field = from.*field;
  }

  void operator()(FieldList list) const {
    switch (list) {
      case FieldList::PaintPicture:
        to.paintPixels = from.paintPixels;
        break;
      case FieldList::Images:
        to.imageCount = from.imageCount;
        to.imageNames = from.imageNames;
        to.itemTimes = from.itemTimes;
        to.imageFiles = from.imageFiles;
        break;
      case FieldList::ColorsWithTimes:
        copyColors();
        to.itemTimes = from.itemTimes;
        break;
      case FieldList::ColorsWithWidths:
        copyColors();
        to.itemWidths = from.itemWidths;
        break;
    }
  }

  void copyColors() const {
    to.colorCount = from.colorCount;
    to.colors = from.colors;
  }
};

}  // namespace

const std::vector<EffectField>& effectFields(std::int16_t type) {
  static const std::vector<EffectField> none;
  return type < 0 || type >= kEffectTypes ? none : table()[static_cast<std::size_t>(type)];
}

void copyEffectFields(const Effect& from, Effect& to) {
  for (const EffectField& field : effectFields(from.type)) std::visit(Copier{from, to}, field);
}

}  // namespace korvane
