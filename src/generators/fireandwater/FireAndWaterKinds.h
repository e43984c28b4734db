#pragma once

#include "generators/kit/EffectKind.h"

namespace korvane {

/// Flames, and a stream.
extern const EffectKind kFireKind;
extern const EffectKind kFluidKind;

}  // namespace korvane
