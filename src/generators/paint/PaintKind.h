#pragma once

#include "generators/kit/EffectKind.h"

namespace korvane {

/// A still picture drawn by hand.
extern const EffectKind kPaintKind;

}  // namespace korvane
