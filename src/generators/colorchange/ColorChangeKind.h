#pragma once

#include "generators/kit/EffectKind.h"

namespace korvane {

/// The whole matrix steps through a list of colours.
extern const EffectKind kColorChangeKind;

}  // namespace korvane
