#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "state/Effect.h"

namespace korvane {

/// What a type keeps of its record beyond `type` and `name`, in the order of its file block: plain
/// fields and the lists with their counts.
enum class FieldList {
  PaintPicture,     ///< `paintPixels`
  Images,           ///< `imageCount`, then name, time and file of each
  ColorsWithTimes,  ///< `colorCount`, then colour and time of each
  ColorsWithWidths  ///< `colorCount`, then colour and width of each
};
using EffectField =
    std::variant<std::int16_t Effect::*, Color Effect::*, std::string Effect::*, FieldList>;

/// The fields of an effect type, in file order; empty for a type that does not exist.
const std::vector<EffectField>& effectFields(std::int16_t type);

/// Copies the fields of the type `from.type` from one record to another; those of other types stay.
void copyEffectFields(const Effect& from, Effect& to);

}  // namespace korvane
