#pragma once

#include "generators/kit/EffectKind.h"

namespace korvane {

/// Bands of colour move through the matrix.
extern const EffectKind kColorScrollKind;

}  // namespace korvane
