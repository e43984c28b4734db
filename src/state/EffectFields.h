#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "state/Effect.h"

namespace korvane {

/// One array of a list that an effect carries.
struct ItemColumn {
  const char* name;
  std::variant<std::vector<std::string> Effect::*, std::vector<double> Effect::*,
               std::vector<std::int32_t> Effect::*>
      values;
};

/// A list that an effect carries: its count, and the arrays that hold it side by side. An array
/// has one slot more than the list has items.
struct ItemList {
  std::int16_t Effect::*count;
  std::vector<ItemColumn> columns;
  bool emptyHasSlot;  ///< an empty list has its one slot, too
};

/// One field of a type's record, by its name. A list goes by the name of its count.
struct EffectField {
  const char* name;
  std::variant<std::int16_t Effect::*, Color Effect::*, std::string Effect::*,
               Grid<Color> Effect::*, ItemList>
      value;
};

// The fields that records have, for the lists of what a kind of effect keeps.
namespace kept {
inline const EffectField color1{"color1", &Effect::color1};
inline const EffectField color2{"color2", &Effect::color2};
inline const EffectField direction{"direction", &Effect::direction};
inline const EffectField paintPixels{"paintPixels", &Effect::paintPixels};
inline const EffectField imageStretch{"imageStretch", &Effect::imageStretch};
inline const EffectField imageTile{"imageTile", &Effect::imageTile};
inline const EffectField speed{"speed", &Effect::speed};
inline const EffectField amount{"amount", &Effect::amount};
inline const EffectField fadeMode{"fadeMode", &Effect::fadeMode};
inline const EffectField beatControl{"beatControl", &Effect::beatControl};
inline const EffectField scrollFadeMode{"scrollFadeMode", &Effect::scrollFadeMode};
inline const EffectField tickerText{"tickerText", &Effect::tickerText};
inline const EffectField tickerFont{"tickerFont", &Effect::tickerFont};
inline const EffectField tickerBackward{"tickerBackward", &Effect::tickerBackward};
inline const EffectField tickerMirror{"tickerMirror", &Effect::tickerMirror};
inline const EffectField tickerLetter{"tickerLetter", &Effect::tickerLetter};

inline const ItemColumn imageNames{"imageNames", &Effect::imageNames};
inline const ItemColumn imageFiles{"imageFiles", &Effect::imageFiles};
inline const ItemColumn itemTimes{"itemTimes", &Effect::itemTimes};
inline const ItemColumn itemWidths{"itemWidths", &Effect::itemWidths};
inline const ItemColumn colors{"colors", &Effect::colors};
}  // namespace kept

/// One field of a fade's record.
struct FadeField {
  const char* name;
  std::variant<std::int16_t FadeEntry::*, std::string FadeEntry::*, double FadeEntry::*,
               Color FadeEntry::*>
      value;
};

/// All fields of a fade, in the order of its file block.
const std::vector<FadeField>& fadeFields();

}  // namespace korvane
