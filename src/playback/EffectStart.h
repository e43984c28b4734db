#pragma once

#include <cstdint>

#include "state/Engine.h"

namespace korvane {

/// What made an effect start.
enum class StartCause {
  TypeChanged,  ///< the type list, and the record was of another type
  TypeChosen,   ///< the type list, and the record had this type already
  RowSelected   ///< a click on a row of the effect list
};

/// Sets the fields that a record gets when it becomes of a type. `effect.type` is left alone.
void setTypeDefaults(Engine& engine, Deck& deck, std::int16_t type);

/// Starts the deck's effect, which is of this type; its timers are stopped. A type that does not
/// exist shows a message.
void startEffect(Engine& engine, Deck& deck, std::int16_t type, StartCause cause);

}  // namespace korvane
