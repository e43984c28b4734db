#pragma once

#include "generators/kit/EffectKind.h"

namespace korvane {

/// Running text, or one letter after the other.
extern const EffectKind kTickerKind;

}  // namespace korvane
