#pragma once

#include <cstdint>

#include "generators/kit/EffectKind.h"
#include "state/Engine.h"

namespace korvane {

/// Sets the fields that a record gets when it becomes of a type. `effect.type` is left alone.
void setTypeDefaults(Engine& engine, Deck& deck, std::int16_t type);

/// Starts the deck's effect, which is of this type; its timers are stopped. A type that does not
/// exist shows a message.
void startEffect(Engine& engine, Deck& deck, std::int16_t type, StartCause cause);

}  // namespace korvane
