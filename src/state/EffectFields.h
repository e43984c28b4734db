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

/// What a type keeps of its record beyond `type` and `name`, in the order of its file block; empty
/// for a type that does not exist.
const std::vector<EffectField>& effectFields(std::int16_t type);

/// Gives the arrays of every list their slots, whatever the type of the effect: two lists share an
/// array, two a count, and a record may become of another type. To be called wherever a count or an
/// array was set. Never shortens an array.
void fitLists(Effect& effect);

/// Copies the fields of the type `from.type` from one record to another; those of other types stay.
void copyEffectFields(const Effect& from, Effect& to);

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
