#pragma once

#include "generators/kit/EffectKind.h"

namespace korvane {

/// Pictures from files, which may travel and follow each other.
extern const EffectKind kImageKind;

}  // namespace korvane
