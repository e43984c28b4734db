#pragma once

#include "generators/kit/EffectKind.h"

namespace korvane {

/// Still effects: one colour, and a ramp between two.
extern const EffectKind kColorKind;
extern const EffectKind kGradientKind;

}  // namespace korvane
